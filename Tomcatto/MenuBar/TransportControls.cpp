#include "MenuBar/TransportControls.h"

namespace tomcatto {
namespace {

PrimaryTransport primaryTransport(const PomodoroStateMachine &stateMachine)
{
    if (stateMachine.currentPhase() == PomodoroPhase::idle)
        return PrimaryTransport::start;
    if (stateMachine.isPhasePending())
        return isBreak(stateMachine.currentPhase()) ? PrimaryTransport::startBreak : PrimaryTransport::start;
    return stateMachine.isPaused() ? PrimaryTransport::resume : PrimaryTransport::pause;
}

}

TransportControls transportControls(const PomodoroStateMachine &stateMachine)
{
    const bool isActive = stateMachine.currentPhase() != PomodoroPhase::idle;
    return {primaryTransport(stateMachine), isActive, isActive, stateMachine.isOverflowing(),
            isActive && !stateMachine.isPhasePending()};
}

void performPrimary(PomodoroStateMachine &stateMachine)
{
    switch (primaryTransport(stateMachine)) {
    case PrimaryTransport::start:
        if (stateMachine.currentPhase() == PomodoroPhase::idle)
            stateMachine.start();
        else
            stateMachine.resume();
        return;
    case PrimaryTransport::startBreak:
    case PrimaryTransport::resume:
        stateMachine.resume();
        return;
    case PrimaryTransport::pause:
        stateMachine.pause();
        return;
    }
}

}
