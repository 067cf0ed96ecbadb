#include "Timer/PhaseSequence.h"

#include "Foundation/CheckedArithmetic.h"

#include <algorithm>

namespace tomcatto {

PhaseStep phaseAfter(PhaseStep current, qint64 cycles)
{
    switch (current.phase) {
    case PomodoroPhase::idle:
        return {PomodoroPhase::working, current.cycleIndex};
    case PomodoroPhase::working: {
        if (cycles == 0)
            fatalError(QStringLiteral("cyclesBeforeLongBreak is 0; it must be at least 1"));
        const qint64 finished = checkedAdd<qint64>(current.cycleIndex, 1);
        // −1 divides everything, and the remainder of the smallest integer by it would trap.
        const bool isLong = cycles == -1 || finished % cycles == 0;
        return {isLong ? PomodoroPhase::longBreak : PomodoroPhase::shortBreak, current.cycleIndex};
    }
    case PomodoroPhase::shortBreak:
    case PomodoroPhase::longBreak:
        return {PomodoroPhase::working, checkedAdd<qint64>(current.cycleIndex, 1) % std::max<qint64>(cycles, 1)};
    }
    return {};
}

}
