#pragma once

#include "Manners/HoldReason.h"
#include "Timer/PomodoroPhase.h"

#include <expected>
#include <nlohmann/json.hpp>

namespace tomcatto {

/// What `tomcatto status` tells, fields in the order of its JSON object.
struct TimerStatus
{
    PomodoroPhase phase = PomodoroPhase::idle;
    bool isPaused = false;
    bool isPending = false;
    bool isOverflowing = false;
    /// Seconds left; 0 while idle.
    qint64 remainingSeconds = 0;
    qint64 overflowSeconds = 0;
    qint64 plannedSeconds = 0;
    qint64 cycleIndex = 0;
    qint64 cyclesPerSet = 0;
    QString phaseToken;
    /// What the pill shows.
    QString title;
    qint64 todayCompleted = 0;
    qint64 todayFocusMinutes = 0;
    qint64 dailyGoal = 0;
    qint64 streak = 0;
    /// Why the break that is pending waits, where it would begin by itself.
    std::optional<HoldReason> heldBy;

    bool operator==(const TimerStatus &) const = default;
};

/// The formats that a status is printed in.
enum class StatusFormat { text, json, waybar };

/// The status as one JSON object.
[[nodiscard]] nlohmann::ordered_json toJson(const TimerStatus &status);
/// The status of such an object, also of a version before breaks were held back; the error says what is missing.
[[nodiscard]] std::expected<TimerStatus, QString> timerStatusFromJson(const nlohmann::ordered_json &object);
/// One line, without a line feed: a sentence, the object, or what a Waybar custom module takes.
[[nodiscard]] QString rendered(const TimerStatus &status, StatusFormat format);
/// Whether two statuses differ by more than the time passing.
[[nodiscard]] bool differByMoreThanTick(const TimerStatus &a, const TimerStatus &b);

}
