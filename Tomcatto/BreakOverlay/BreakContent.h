#pragma once

#include "Localization/LocalizedStrings.h"
#include "Timer/PomodoroPhase.h"

namespace tomcatto {

/// What the view of a break shows beside the video, as a plain value.
struct BreakContent
{
    /// The break's stored name, which chooses the colours.
    QString phase;
    QString title;
    QString subtitle;
    /// Minutes and seconds left, two digits each.
    QString time;
    /// The same for a screen reader.
    QString spokenTime;
    /// Fraction of the break that is left, 0 to 1.
    double progress = 0;
    /// Whether the break waits for the user to start it.
    bool canStart = false;
    bool canExtend = false;
    /// Whether the settings allow sounds.
    bool soundEnabled = false;

    bool operator==(const BreakContent &) const = default;
};

/// Fills in what follows from the time left. @param totalSeconds the whole break; below 1 counts as 1
void setCountdown(BreakContent &content, const LocalizedStrings &strings, qint64 remainingSeconds, qint64 totalSeconds);

}
