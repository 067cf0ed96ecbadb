#pragma once

#include <concepts>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

namespace tomcatto {

/// The text with its placeholders filled in: "%@" takes the next argument, "%1$@" to "%9$@" that one, "%%" is a per
/// cent sign. A placeholder without an argument stays as it is, further arguments are dropped.
[[nodiscard]] QString fillPlaceholders(QStringView text, const QStringList &arguments);

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
