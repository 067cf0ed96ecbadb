#pragma once

#include "Platform/Ports/HotKeys.h"

#include <cstdint>

namespace tomcatto {

/// How far the desktop goes along with something.
enum class DesktopSupport : std::uint8_t {
    full,
    /// It works, with a difference that the permissions page names.
    limited,
    none
};

/// What this desktop can do for the application, as the application found out at start.
struct DesktopCapabilities
{
    /// Whether there is a tray; without one a small window at the top edge takes the icon's place (`none`), which on
    /// some desktops stands where they want it (`limited`).
    DesktopSupport tray = DesktopSupport::full;
    /// Whether the break may cover the whole screen, panels included; never `none`.
    DesktopSupport overlay = DesktopSupport::full;
    HotKeySupport hotKeys = HotKeySupport::works;
    /// Whether the whole pill is seen, in a menu bar or a small window, and not a square tray icon.
    bool showsPill = false;
    /// Whether the panel opens at the icon, and not where the desktop wants it.
    bool placesPanel = true;
    /// Whether the system can be told to start the application at login.
    bool opensAtLogin = true;
    /// Whether the system tells when it goes to sleep.
    bool noticesSleep = true;

    bool operator==(const DesktopCapabilities &) const = default;
};

}
