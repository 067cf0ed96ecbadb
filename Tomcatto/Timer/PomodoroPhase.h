#pragma once

#include "Foundation/EnumTexts.h"

namespace tomcatto {

/// What the timer is doing. Stored and exchanged by the texts of `rawValue`.
enum class PomodoroPhase { idle, working, shortBreak, longBreak };
template<>
inline constexpr std::array rawValues<PomodoroPhase>{"idle", "work", "shortBreak", "longBreak"};

/// Why a phase was left. Never stored; the history keeps two flags derived from it.
enum class PhaseExitReason { started, completed, skipped, reset, terminated };
template<>
inline constexpr std::array rawValues<PhaseExitReason>{"started", "completed", "skipped", "reset", "terminated"};

/// Whether the phase is a short or a long break.
[[nodiscard]] constexpr bool isBreak(PomodoroPhase phase) noexcept
{
    return phase == PomodoroPhase::shortBreak || phase == PomodoroPhase::longBreak;
}

/// One change of phase, as every observer gets it.
struct PhaseTransition
{
    PomodoroPhase previous = PomodoroPhase::idle;
    PomodoroPhase current = PomodoroPhase::idle;
    /// Work cycles finished in the set after the change, from 0.
    qint64 cycleIndex = 0;
    PhaseExitReason reason = PhaseExitReason::started;
    /// Planned length of the phase that was left, extensions included.
    qint64 previousPlannedSeconds = 0;
    /// Whether the phase that was left reached its planned end.
    bool previousReachedPlan = false;

    bool operator==(const PhaseTransition &) const = default;
};

}
