#include "Platform/Freedesktop/AutostartEntry.h"

namespace tomcatto {

namespace {

/// A text value of the file: what follows a backslash stands for something else.
QString textValue(const QByteArray &value)
{
    QString text;
    const QString raw = QString::fromUtf8(value);
    for (auto place = raw.cbegin(); place != raw.cend(); ++place) {
        if (*place != u'\\' || std::next(place) == raw.cend()) {
            text += *place;
            continue;
        }
        constexpr QStringView marks = u"sntr";
        constexpr QStringView meanings = u" \n\t\r";
        ++place;
        const auto known = marks.indexOf(*place);
        text += known < 0 ? *place : meanings.at(known);
    }
    return text;
}

/// The words of a command: apart by spaces outside of quotes; inside them a backslash takes the next character as it
/// is.
QStringList words(const QString &command)
{
    QStringList result;
    QString word;
    bool isQuoted = false;
    bool hasWord = false;
    for (auto place = command.cbegin(); place != command.cend(); ++place) {
        if (*place == u'"') {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (*place == u' ' && !isQuoted) {
            if (std::exchange(hasWord, false))
                result += std::exchange(word, {});
        } else {
            if (*place == u'\\' && isQuoted && std::next(place) != command.cend())
                ++place;
            word += *place;
            hasWord = true;
        }
    }
    if (hasWord)
        result += word;
    // The other codes with a per cent sign stand for files to open, and there are none at login.
    result.removeIf([](const QString &each) { return each.size() == 2 && each.front() == u'%' && each != u"%%"; });
    result.replaceInStrings(QStringLiteral("%%"), QStringLiteral("%"));
    return result;
}

}

AutostartEntry AutostartEntry::read(const QByteArray &text)
{
    AutostartEntry entry;
    bool isInside = false;
    for (const QByteArray &rawLine : text.split('\n')) {
        const QByteArray line = rawLine.trimmed();
        if (line.startsWith('['))
            isInside = line == "[Desktop Entry]";
        const auto equals = line.indexOf('=');
        if (!isInside || equals < 0)
            continue;
        const QByteArray key = line.left(equals).trimmed();
        const QByteArray value = line.mid(equals + 1).trimmed();
        if (key == "Type")
            entry.isApplication = value == "Application";
        else if (key == "Exec")
            entry.command = words(textValue(value));
        else if (key == "TryExec")
            entry.neededProgram = textValue(value);
        entry.isSwitchedOff = entry.isSwitchedOff || (key == "Hidden" && value == "true") ||
                              (key == "X-GNOME-Autostart-enabled" && value == "false");
    }
    return entry;
}

QByteArray AutostartEntry::commandWord(const QString &path)
{
    // Quoted, with the characters escaped that mean something inside quotes, per cent signs doubled, and every
    // backslash doubled once more because the line is a text value of the file.
    QString word;
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            word += u'\\';
        if (character == u'%')
            word += u'%';
        word += character;
    }
    word.replace(u'\\', QStringLiteral("\\\\")).replace(u'\n', QStringLiteral("\\n"));
    return '"' + word.toUtf8() + '"';
}

}
