#pragma once

#include "Foundation/Date.h"
#include "Timer/PomodoroPhase.h"

#include <optional>

namespace tomcatto {

/// A phase as widgets know it, exchanged by the texts of `rawValue`.
enum class WidgetPhase { idle, work, shortBreak, longBreak };
template<>
inline constexpr std::array rawValues<WidgetPhase> = rawValues<PomodoroPhase>;

[[nodiscard]] WidgetPhase widgetPhase(PomodoroPhase phase);

/// Everything that a widget shows, in the order of the file. Instants are absolute, so that it can count by itself.
struct WidgetSnapshot
{
    WidgetPhase phase = WidgetPhase::idle;
    bool isPaused = false;
    /// The phase's time is up and the timer counts on.
    bool isOverflowing = false;
    /// The phase waits to be started.
    bool isPending = false;
    /// When the running countdown ends; absent where none runs.
    std::optional<Date> phaseEndsAt;
    /// Since when the phase overflows; absent where it does not.
    std::optional<Date> overflowStartedAt;
    /// The seconds to show where nothing counts.
    qint64 staticSeconds = 0;
    WidgetPhase nextPhase = WidgetPhase::work;
    /// Work phases finished in the set, from 0.
    qint64 cycleIndex = 0;
    qint64 cyclesPerSet = 0;
    qint64 todayCompleted = 0;
    qint64 todayFocusMinutes = 0;
    qint64 dailyGoal = 0;
    /// Days in a row.
    qint64 streak = 0;
    /// From then on the figures of the day are old.
    Date validUntil;

    bool operator==(const WidgetSnapshot &) const = default;
};

/// Whether a widget that counts by itself shows the same for both: they differ in nothing but the seconds that have
/// passed, and in a second at most by which an instant was rounded.
[[nodiscard]] bool differInTimeOnly(WidgetSnapshot one, const WidgetSnapshot &other);

/// The phase that follows. @param cyclesPerSet work phases before a long break; below 1 counts as 1
[[nodiscard]] WidgetPhase nextPhase(PomodoroPhase current, qint64 cycleIndex, qint64 cyclesPerSet);

}
