#pragma once

#include "Timer/PomodoroPhase.h"

namespace tomcatto {

/// What to do on wake with a phase that was paused because the machine went to sleep.
enum class WakeDecision { resume, stayPaused, completeBreak };

/// A sleep shorter than this is treated as if it had not happened.
inline constexpr double shortestSleepSeconds = 60;

/// The rule: a work phase never goes on by itself after a longer sleep, a break that would have ended counts as taken.
/// @param phase the phase at sleep. @param remainingSeconds what it had left then. @param sleepSeconds how long the
/// machine slept.
[[nodiscard]] constexpr WakeDecision sleepWakePolicy(PomodoroPhase phase, qint64 remainingSeconds,
                                                     double sleepSeconds) noexcept
{
    if (phase == PomodoroPhase::idle || sleepSeconds < shortestSleepSeconds)
        return WakeDecision::resume;
    if (phase == PomodoroPhase::working)
        return WakeDecision::stayPaused;
    return static_cast<double>(remainingSeconds) <= sleepSeconds ? WakeDecision::completeBreak : WakeDecision::resume;
}

}
