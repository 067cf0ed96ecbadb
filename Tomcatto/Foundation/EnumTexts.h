#pragma once

#include <array>
#include <optional>
#include <QtCore/QString>

namespace tomcatto {

/// The text of a case, from a table of the texts of all cases in their order, which counts from 0.
template<typename Enum, std::size_t count>
[[nodiscard]] QString textOf(const std::array<const char *, count> &texts, Enum value)
{
    return QString::fromLatin1(texts.at(static_cast<std::size_t>(value)));
}

/// The case with that text in such a table; nothing for any other text.
template<typename Enum, std::size_t count>
[[nodiscard]] std::optional<Enum> caseOf(const std::array<const char *, count> &texts, QStringView text)
{
    for (std::size_t place = 0; place < count; ++place) {
        if (text == QLatin1StringView(texts.at(place)))
            return static_cast<Enum>(place);
    }
    return std::nullopt;
}

/// The texts that the cases of an enumeration are stored and exchanged by, in their order. An enumeration that has such
/// texts brings them beside it, and then has the functions below.
template<typename Enum>
inline constexpr std::nullptr_t rawValues = nullptr;

template<typename Enum>
concept HasRawValues = !std::is_same_v<decltype(rawValues<Enum>), const std::nullptr_t>;

/// The text that a case is stored by.
template<HasRawValues Enum>
[[nodiscard]] QString rawValue(Enum value)
{
    return textOf(rawValues<Enum>, value);
}

/// The case with that text; nothing for any other text.
template<HasRawValues Enum>
[[nodiscard]] std::optional<Enum> fromRawValue(QStringView text)
{
    return caseOf<Enum>(rawValues<Enum>, text);
}

}
