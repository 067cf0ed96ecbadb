#include "Localization/PseudoText.h"

#include "Localization/TextFormat.h"

namespace tomcatto {

namespace {

QChar accented(QChar letter)
{
    constexpr QStringView plain = u"aceginosuyzACEGINOSUYZ";
    constexpr QStringView marked = u"âçêğîñôşüÿžÂÇÊĞÎÑÔŞÜŸŽ";
    const qsizetype index = plain.indexOf(letter);
    return index < 0 ? letter : marked.at(index);
}

/// Filling of that many characters in short words, so that long texts still find places to wrap.
QString filling(qsizetype length)
{
    QString text;
    while (text.size() < length)
        text += text.size() % 5 == 0 ? u' ' : u'õ';
    return text;
}

}

QString pseudoText(const QString &text)
{
    QString marked;
    qsizetype copied = 0;
    const auto accentUpTo = [&](qsizetype end) {
        for (; copied < end; ++copied)
            marked += accented(text.at(copied));
    };
    for (const Placeholder &placeholder : placeholders(text)) {
        accentUpTo(placeholder.position);
        marked += QStringView(text).mid(placeholder.position, placeholder.length);
        copied = placeholder.position + placeholder.length;
    }
    accentUpTo(text.size());
    // The brackets count towards the 40 %, rounded up.
    const qsizetype extra = (text.size() * 2 + 4) / 5 - 2;
    return u'[' + marked + filling(extra) + u']';
}

}
