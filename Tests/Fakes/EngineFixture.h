#pragma once

#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualClock.h"
#include "Fakes/ManualRunLoop.h"
#include "Fakes/ManualWallClock.h"
#include "Fakes/SequentialIdentifiers.h"
#include "Timer/PomodoroStateMachine.h"

#include <vector>

namespace tomcatto {

/// The timer engine over clocks that a test moves by hand, with everything it announced.
class EngineFixture
{
public:
    EngineFixture()
    {
        QObject::connect(&machine, &PomodoroStateMachine::transitioned, &machine,
                         [this](const PhaseTransition &transition) { transitions.push_back(transition); });
        QObject::connect(&machine, &PomodoroStateMachine::overflowBegan, &machine, [this] { ++overflows; });
        QObject::connect(&machine, &PomodoroStateMachine::ceilingReached, &machine, [this] { ++ceilings; });
    }

    /// Lets time pass: all clocks and the run loop move together.
    void pass(std::chrono::milliseconds span)
    {
        runLoop.advance(span, [this](std::chrono::milliseconds step) {
            clock.advance(step);
            wallClock.advance(step);
        });
    }
    /// Lets the machine be stalled: the clocks move, no timer fires.
    void stall(std::chrono::milliseconds span)
    {
        clock.advance(span);
        wallClock.advance(span);
    }

    FakeUserDefaults defaults;
    ManualClock clock;
    ManualWallClock wallClock;
    ManualRunLoop runLoop;
    SequentialIdentifiers identifiers;
    PomodoroSettings settings{defaults};
    PomodoroTimer timer{clock, runLoop};
    PomodoroStateMachine machine{settings, timer, runLoop, identifiers};
    std::vector<PhaseTransition> transitions;
    int overflows = 0;
    int ceilings = 0;
};

}
