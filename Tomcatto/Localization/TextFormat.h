#pragma once

#include <concepts>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

namespace tomcatto {

/// A placeholder as it stands in a text: where, how long, and which argument it takes, from 0. An argument of -1 is the
/// "%%" that stands for one per cent sign.
struct Placeholder
{
    qsizetype position = 0;
    qsizetype length = 0;
    qsizetype argument = 0;

    bool operator==(const Placeholder &) const = default;
};

/// All placeholders of a text in order: "%@", "%d", "%ld", "%1$@", "%2$d" and "%%". Those without a number take the
/// arguments one after another.
[[nodiscard]] QList<Placeholder> placeholders(QStringView text);

/// The text with its placeholders filled in. A placeholder without an argument stays as it is, further arguments are
/// dropped.
[[nodiscard]] QString fillPlaceholders(const QString &text, const QStringList &arguments);

/// An argument as text. Whole numbers come without separators.
[[nodiscard]] inline QString formatArgument(QStringView text)
{
    return text.toString();
}
template<std::integral Integer>
[[nodiscard]] QString formatArgument(Integer number)
{
    return QString::number(number);
}

}
