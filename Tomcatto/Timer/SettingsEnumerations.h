#pragma once

namespace tomcatto {

/// Appearance of the application's windows; `system` follows the system's.
enum class ThemePreference { system, light, dark };

/// What the menu-bar item shows: the icon alone or the remaining time beside it.
enum class MenuBarStyle { iconOnly, countdown };

/// Where the break video comes from. Which one plays is the catalog's choice.
enum class VideoSource { bundled };

}
