#pragma once

#include "Timer/PomodoroPhase.h"

namespace tomcatto {

/// Extending always means five minutes, wherever the user asks for it.
inline constexpr qint64 extensionSeconds = 300;

/// A work phase that overflows for an hour pauses by itself; recovery counts no more than that either.
inline constexpr qint64 overflowCeilingSeconds = 3600;

/// A phase of the sequence and its cycle index.
struct PhaseStep
{
    PomodoroPhase phase = PomodoroPhase::idle;
    qint64 cycleIndex = 0;

    bool operator==(const PhaseStep &) const = default;
};

/// The phase after `current`. @param cycles work phases before a long break; 0 is fatal when a work phase is left,
/// while leaving a break takes anything below 1 as 1: a broken setting stops the set where it would go wrong, not
/// later.
[[nodiscard]] PhaseStep phaseAfter(PhaseStep current, qint64 cycles);

}
