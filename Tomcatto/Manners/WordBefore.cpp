#include "Manners/WordBefore.h"

namespace tomcatto {

using Key = MannersSettings::Key;

WordBefore::WordBefore(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                       const MannersSettings &settings)
    : m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
{
    connect(&m_timer, &PomodoroTimer::remainingSecondsChanged, this, &WordBefore::update);
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &WordBefore::update);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &WordBefore::update);
    connect(&m_stateMachine, &PomodoroStateMachine::phaseTokenChanged, this, &WordBefore::update);
    connect(&m_settings, &MannersSettings::changed, this, &WordBefore::update);
}

void WordBefore::update()
{
    // One that was interrupted is not said again for the same end.
    const bool isSaid = m_saidFor == m_stateMachine.phaseToken();
    const bool is = isNear() && (m_isBreakNear || !isSaid);
    if (std::exchange(m_isBreakNear, is) == is)
        return;
    if (is)
        m_saidFor = m_stateMachine.phaseToken();
    Q_EMIT isBreakNearChanged();
}

bool WordBefore::isNear() const
{
    if (!m_settings.isOn(Key::saysWordBefore) || m_stateMachine.currentPhase() != PomodoroPhase::working ||
        m_stateMachine.isPaused())
        return false;
    const qint64 ahead = m_settings.value(Key::wordBeforeSeconds);
    const qint64 remaining = m_timer.remainingSeconds();
    return m_stateMachine.currentPlannedSeconds() > ahead && remaining > 0 && remaining <= ahead;
}

}
