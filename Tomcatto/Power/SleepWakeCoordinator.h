#pragma once

#include "Foundation/Logger.h"
#include "Power/SleepWakeObserver.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// Pauses a running phase before the machine sleeps and decides on wake what becomes of it. While a phase runs it asks
/// the system to wait with sleeping until the pause is in place. Main thread only.
class SleepWakeCoordinator final : public QObject
{
    Q_OBJECT

public:
    SleepWakeCoordinator(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, SleepWakeObserver &observer,
                         QObject *parent = nullptr);

    /// Asked whether a phase may go on by itself on wake; it stays paused otherwise. Without a question each one may.
    void setResumeQuestion(std::function<bool()> mayResume) { m_mayResume = std::move(mayResume); }
    /// Subscribes; called once, when the surfaces are installed.
    void start();

private:
    struct Snapshot
    {
        PomodoroPhase phase;
        qint64 remainingSeconds;
    };

    void handleSleep();
    void handleWake(double sleepSeconds);
    void updateDelay();

    PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    SleepWakeObserver &m_observer;
    Logger m_logger;
    std::function<bool()> m_mayResume;
    std::optional<Snapshot> m_snapshot;
};

}
