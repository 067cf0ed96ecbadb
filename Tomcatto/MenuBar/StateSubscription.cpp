#include "MenuBar/StateSubscription.h"

#include "Platform/Ports/OncePerTurn.h"

namespace tomcatto {

Cancellable subscribeToState(AppDependencies &dependencies, std::function<void()> changed)
{
    auto relay = std::make_shared<OncePerTurn>(dependencies.platform.runLoop, std::move(changed));
    OncePerTurn *target = relay.get();
    const auto follow = [target](const auto *sender, auto... signal) {
        (QObject::connect(sender, signal, target, &OncePerTurn::schedule), ...);
    };
    follow(&dependencies.stateMachine, &PomodoroStateMachine::currentPhaseChanged,
           &PomodoroStateMachine::currentCycleIndexChanged, &PomodoroStateMachine::isPausedChanged,
           &PomodoroStateMachine::currentPlannedSecondsChanged, &PomodoroStateMachine::isOverflowingChanged,
           &PomodoroStateMachine::isPhasePendingChanged, &PomodoroStateMachine::phaseTokenChanged);
    follow(&dependencies.timer, &PomodoroTimer::remainingSecondsChanged, &PomodoroTimer::overflowSecondsChanged);
    follow(&dependencies.settings, &PomodoroSettings::changed);
    follow(&dependencies.strings, &LocalizedStrings::changed);
    return Cancellable([relay]() mutable { relay.reset(); });
}

}
