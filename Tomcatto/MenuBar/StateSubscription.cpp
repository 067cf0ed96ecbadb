#include "MenuBar/StateSubscription.h"

#include "Platform/Ports/OncePerTurn.h"

namespace tomcatto {

Cancellable subscribeToState(const MenuBarServices &services, std::function<void()> changed)
{
    auto relay = std::make_shared<OncePerTurn>(services.runLoop, std::move(changed));
    OncePerTurn *target = relay.get();
    const auto follow = [target](const auto *sender, auto... signal) {
        (QObject::connect(sender, signal, target, &OncePerTurn::schedule), ...);
    };
    follow(&services.stateMachine, &PomodoroStateMachine::currentPhaseChanged,
           &PomodoroStateMachine::currentCycleIndexChanged, &PomodoroStateMachine::isPausedChanged,
           &PomodoroStateMachine::currentPlannedSecondsChanged, &PomodoroStateMachine::isOverflowingChanged,
           &PomodoroStateMachine::isPhasePendingChanged, &PomodoroStateMachine::phaseTokenChanged);
    follow(&services.timer, &PomodoroTimer::remainingSecondsChanged, &PomodoroTimer::overflowSecondsChanged);
    follow(&services.manners, &MannersService::heldByChanged, &MannersService::awaySinceChanged,
           &MannersService::isBreakNearChanged);
    follow(&services.settings, &PomodoroSettings::changed);
    follow(&services.strings, &LocalizedStrings::changed);
    return Cancellable([relay]() mutable { relay.reset(); });
}

}
