#pragma once

#include "Foundation/EnumTexts.h"

#include <QtCore/QSize>

namespace tomcatto {

/// The sizes that a widget has, known by the texts of `rawValue`.
enum class WidgetSize { small, medium, large };
template<>
inline constexpr std::array rawValues<WidgetSize>{"small", "medium", "large"};

inline constexpr std::array allWidgetSizes{WidgetSize::small, WidgetSize::medium, WidgetSize::large};

/// The size with that text; nothing for any other text.
[[nodiscard]] inline std::optional<WidgetSize> widgetSizeFromRawValue(QStringView text)
{
    return fromRawValue<WidgetSize>(text);
}
/// In logical pixels.
[[nodiscard]] QSize extent(WidgetSize size);

}
