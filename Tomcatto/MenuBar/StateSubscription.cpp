#include "MenuBar/StateSubscription.h"

namespace tomcatto {
namespace {

/// Lives as long as the subscription; what waits in the main loop knows it weakly.
class StateRelay final : public QObject
{
public:
    StateRelay(MainRunLoop &runLoop, std::function<void()> changed)
        : m_runLoop(runLoop)
        , m_changed(std::make_shared<std::function<void()>>(std::move(changed)))
    {
    }

    void schedule()
    {
        if (std::exchange(m_isScheduled, true))
            return;
        m_runLoop.async([this, changed = std::weak_ptr(m_changed)] {
            const auto action = changed.lock();
            if (!action)
                return;
            m_isScheduled = false;
            (*action)();
        });
    }

private:
    MainRunLoop &m_runLoop;
    std::shared_ptr<std::function<void()>> m_changed;
    bool m_isScheduled = false;
};

}

Cancellable subscribeToState(AppDependencies &dependencies, std::function<void()> changed)
{
    auto relay = std::make_shared<StateRelay>(dependencies.platform.runLoop, std::move(changed));
    StateRelay *target = relay.get();
    const auto follow = [target](const auto *sender, auto... signal) {
        (QObject::connect(sender, signal, target, &StateRelay::schedule), ...);
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
