#pragma once

#include "Timer/SettingsEnumerations.h"

namespace tomcatto {

/// What the pill's colours say. Overtime is a work phase past its plan.
enum class StatusPillTone { idle, work, shortBreak, longBreak, overtime };

/// Everything the pill shows, as a plain value: drawn in the menu bar, printed in the terminal.
struct StatusPillContent
{
    MenuBarStyle style = MenuBarStyle::countdown;
    /// The remaining or overflow time, or the caption of a break that waits.
    QString title;
    StatusPillTone tone = StatusPillTone::idle;
    /// Fraction of the phase that has passed, 0 to 1.
    double progress = 0;
    bool isPaused = false;
    bool breakReady = false;
    bool isDarkBar = false;
    /// How far the progress has faded with a breath, 0 to 1; only shortly before a break.
    double breath = 0;

    bool operator==(const StatusPillContent &) const = default;
};

}
