#include "MainWindow/VideoTexts.h"

#include "Foundation/EnumTexts.h"

#include <algorithm>

namespace tomcatto {

namespace {

struct IncludedTitle
{
    QLatin1StringView name;
    QLatin1StringView key;
};

// The file names begin with a number, which is their place in the list.
constexpr std::array includedTitles{IncludedTitle{QLatin1StringView("rain-on-the-sill"), QLatin1StringView("rain")},
                                    IncludedTitle{QLatin1StringView("the-fish"), QLatin1StringView("fish")},
                                    IncludedTitle{QLatin1StringView("kneading"), QLatin1StringView("kneading")},
                                    IncludedTitle{QLatin1StringView("box-and-butterfly"), QLatin1StringView("box")},
                                    IncludedTitle{QLatin1StringView("warm-keyboard"), QLatin1StringView("keyboard")},
                                    IncludedTitle{QLatin1StringView("first-snow"), QLatin1StringView("snow")}};

}

QString includedVideoTitle(const LocalizedStrings &strings, const QString &identifier)
{
    const QString name = identifier.section(QLatin1Char('-'), 1);
    const auto *const known = std::ranges::find(includedTitles, name, &IncludedTitle::name);
    return known == includedTitles.end() ? identifier : strings.text(QStringLiteral("videos.included.") + known->key);
}

QString shownName(const QString &name)
{
    QString line = name;
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return line.simplified();
}

QString shortName(const QString &name)
{
    constexpr qsizetype begin = 32;
    constexpr qsizetype end = 16;
    QString line = shownName(name);
    if (line.size() <= begin + end)
        return line;
    // Never half a character.
    const qsizetype cut = line.at(begin).isLowSurrogate() ? begin - 1 : begin;
    const qsizetype rest = line.at(line.size() - end).isLowSurrogate() ? end - 1 : end;
    return line.first(cut) + QChar(u'…') + line.last(rest);
}

QString refusalKey(VideoFileError error)
{
    constexpr std::array keys{"not_found", "folder",      "no_file",    "unreadable",
                              "empty",     "not_a_video", "no_picture", "timed_out"};
    return textOf(keys, error);
}

}
