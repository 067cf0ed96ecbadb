#pragma once

#include <array>
#include <optional>
#include <QtCore/QSize>
#include <QtCore/QString>

namespace tomcatto {

/// The sizes that a widget has, known by the texts of `rawValue`.
enum class WidgetSize { small, medium, large };

inline constexpr std::array allWidgetSizes{WidgetSize::small, WidgetSize::medium, WidgetSize::large};

/// "small", "medium" or "large".
[[nodiscard]] QString rawValue(WidgetSize size);
/// The size with that text; nothing for any other text.
[[nodiscard]] std::optional<WidgetSize> widgetSizeFromRawValue(QStringView text);
/// In logical pixels.
[[nodiscard]] QSize extent(WidgetSize size);

}
