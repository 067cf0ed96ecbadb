#include "StatusPill/StatusPillSource.h"

#include <algorithm>

namespace tomcatto {

QString clockText(qint64 seconds)
{
    const qint64 whole = std::max<qint64>(seconds, 0);
    return QStringLiteral("%1:%2").arg(whole / 60, 2, 10, QLatin1Char('0')).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

StatusPillTone statusPillTone(PomodoroPhase phase, bool isOverflowing) noexcept
{
    if (isOverflowing)
        return StatusPillTone::overtime;
    switch (phase) {
    case PomodoroPhase::idle:
        return StatusPillTone::idle;
    case PomodoroPhase::working:
        return StatusPillTone::work;
    case PomodoroPhase::shortBreak:
        return StatusPillTone::shortBreak;
    case PomodoroPhase::longBreak:
        return StatusPillTone::longBreak;
    }
    return StatusPillTone::idle;
}

StatusPillSource::StatusPillSource(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                                   const PomodoroSettings &settings, const LocalizedStrings &strings)
    : m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
    , m_strings(strings)
{
}

StatusPillContent StatusPillSource::content(bool isDarkBar) const
{
    const PomodoroPhase phase = m_stateMachine.currentPhase();
    StatusPillContent content;
    content.style = m_settings.menuBarStyle();
    content.breakReady = m_stateMachine.isPhasePending() && isBreak(phase);
    content.title = title(content.breakReady);
    content.tone = statusPillTone(phase, m_stateMachine.isOverflowing());
    content.progress = progress();
    content.isPaused = m_stateMachine.isPaused();
    content.isDarkBar = isDarkBar;
    return content;
}

QString StatusPillSource::title(bool breakReady) const
{
    if (breakReady)
        return m_strings.text(QStringLiteral("menubar.pill.ready"));
    if (m_stateMachine.isOverflowing())
        return QLatin1Char('+') + clockText(m_timer.overflowSeconds());
    return clockText(m_stateMachine.currentPhase() == PomodoroPhase::idle ? m_settings.workDurationSeconds()
                                                                          : m_timer.remainingSeconds());
}

double StatusPillSource::progress() const
{
    if (m_stateMachine.currentPhase() == PomodoroPhase::idle)
        return 0;
    if (m_stateMachine.isOverflowing())
        return 1;
    const auto total = static_cast<double>(std::max<qint64>(m_stateMachine.currentPlannedSeconds(), 1));
    return (total - static_cast<double>(m_timer.remainingSeconds())) / total;
}

}
