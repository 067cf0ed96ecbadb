#include "Power/SleepWakeCoordinator.h"

#include "Power/SleepWakePolicy.h"

namespace tomcatto {

SleepWakeCoordinator::SleepWakeCoordinator(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                                           SleepWakeObserver &observer, QObject *parent)
    : QObject(parent)
    , m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_observer(observer)
    , m_logger(QStringLiteral("SleepWakeCoordinator"))
{
}

void SleepWakeCoordinator::start()
{
    connect(&m_observer, &SleepWakeObserver::willSleep, this, &SleepWakeCoordinator::handleSleep);
    connect(&m_observer, &SleepWakeObserver::didWake, this, &SleepWakeCoordinator::handleWake);
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &SleepWakeCoordinator::updateDelay);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &SleepWakeCoordinator::updateDelay);
    updateDelay();
}

void SleepWakeCoordinator::handleSleep()
{
    if (m_stateMachine.currentPhase() == PomodoroPhase::idle || m_stateMachine.isPaused())
        return;
    const PomodoroPhase phase = m_stateMachine.currentPhase();
    m_stateMachine.pause();
    m_snapshot = Snapshot{phase, m_timer.remainingSeconds()};
    m_logger.info(QStringLiteral("Paused for sleep"));
}

void SleepWakeCoordinator::handleWake(double sleepSeconds)
{
    const auto snapshot = std::exchange(m_snapshot, std::nullopt);
    if (!snapshot || m_stateMachine.currentPhase() != snapshot->phase || !m_stateMachine.isPaused())
        return;
    m_logger.info(QStringLiteral("Woke after %1 seconds").arg(sleepSeconds, 0, 'f', 0));
    switch (sleepWakePolicy(snapshot->phase, snapshot->remainingSeconds, sleepSeconds)) {
    case WakeDecision::resume:
        if (!m_mayResume || m_mayResume())
            m_stateMachine.resume();
        break;
    case WakeDecision::stayPaused:
        break;
    case WakeDecision::completeBreak:
        m_stateMachine.completeBreak();
        break;
    }
}

void SleepWakeCoordinator::updateDelay()
{
    m_observer.setSleepDelayed(m_stateMachine.currentPhase() != PomodoroPhase::idle && !m_stateMachine.isPaused());
}

}
