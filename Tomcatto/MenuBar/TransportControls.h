#pragma once

#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// What the one filled button does.
enum class PrimaryTransport { start, startBreak, pause, resume };

/// Which transport controls there are and which of them may be pressed.
struct TransportControls
{
    PrimaryTransport primary = PrimaryTransport::start;
    bool canReset = false;
    bool canSkip = false;
    /// Take break stands in place of skip.
    bool showsTakeBreak = false;
    /// While a phase runs, is paused or overflows; not while one waits to be started.
    bool showsExtend = false;

    bool operator==(const TransportControls &) const = default;
};

/// The controls for the machine's state.
[[nodiscard]] TransportControls transportControls(const PomodoroStateMachine &stateMachine);

/// Does what the filled button says in this state.
void performPrimary(PomodoroStateMachine &stateMachine);

}
