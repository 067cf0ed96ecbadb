#include "Localization/TextFormat.h"

namespace tomcatto {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// The placeholder that begins at `start`, where a per cent sign stands; of length 0 when that is an ordinary
/// character.
Placeholder placeholderAt(QStringView text, qsizetype start, qsizetype nextArgument)
{
    const auto at = [text](qsizetype index) { return index < text.size() ? text.at(index) : QChar(); };
    qsizetype end = start + 1;
    if (at(end) == u'%')
        return {start, 2, -1};
    qsizetype argument = nextArgument;
    if (isDigit(at(end))) {
        const qsizetype digits = end;
        while (isDigit(at(end)))
            ++end;
        argument = text.mid(digits, end - digits).toLongLong() - 1;
        if (at(end) != u'$' || argument < 0)
            return {start, 0, 0};
        ++end;
    }
    while (at(end) == u'l')
        ++end;
    if (at(end) != u'@' && at(end) != u'd')
        return {start, 0, 0};
    return {start, end + 1 - start, argument};
}

}

QList<Placeholder> placeholders(QStringView text)
{
    QList<Placeholder> found;
    qsizetype nextArgument = 0;
    qsizetype position = text.indexOf(u'%');
    while (position >= 0) {
        const Placeholder next = placeholderAt(text, position, nextArgument);
        if (next.length > 0) {
            found.append(next);
            if (next.argument == nextArgument)
                ++nextArgument;
        }
        position = text.indexOf(u'%', position + qMax<qsizetype>(next.length, 1));
    }
    return found;
}

QString fillPlaceholders(const QString &text, const QStringList &arguments)
{
    QString filled;
    qsizetype copied = 0;
    for (const Placeholder &placeholder : placeholders(text)) {
        filled += QStringView(text).mid(copied, placeholder.position - copied);
        copied = placeholder.position + placeholder.length;
        if (placeholder.argument < 0)
            filled += u'%';
        else if (placeholder.argument < arguments.size())
            filled += arguments.at(placeholder.argument);
        else
            filled += QStringView(text).mid(placeholder.position, placeholder.length);
    }
    return filled.append(QStringView(text).mid(copied));
}

}
