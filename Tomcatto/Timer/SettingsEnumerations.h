#pragma once

#include <optional>
#include <QtCore/QString>
#include <QtCore/QStringView>

namespace tomcatto {

/// Appearance of the application's windows; `system` follows the system's.
enum class ThemePreference { system, light, dark };

/// What the menu-bar item shows: the icon alone or the remaining time beside it.
enum class MenuBarStyle { iconOnly, countdown };

/// Where the break video comes from. Which one plays is the catalog's choice.
enum class VideoSource { bundled };

/// The stored text of each case.
[[nodiscard]] QString rawValue(ThemePreference preference);
[[nodiscard]] QString rawValue(MenuBarStyle style);
[[nodiscard]] QString rawValue(VideoSource source);

/// The case with that stored text; nothing for any other text.
[[nodiscard]] std::optional<ThemePreference> themePreferenceFromRawValue(QStringView text);
[[nodiscard]] std::optional<MenuBarStyle> menuBarStyleFromRawValue(QStringView text);
[[nodiscard]] std::optional<VideoSource> videoSourceFromRawValue(QStringView text);

}
