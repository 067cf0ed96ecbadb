#include "Control/StatusSource.h"

#include <QtCore/QMetaMethod>

namespace tomcatto {

StatusSource::StatusSource(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
    , m_pill(parts.stateMachine, parts.timer, parts.settings, parts.strings)
    , m_check(parts.runLoop, [this] { check(); })
{
    const auto &machine = m_parts.stateMachine;
    const auto changed = [this] { checkSoon(); };
    connect(&machine, &PomodoroStateMachine::isPausedChanged, this, changed);
    connect(&machine, &PomodoroStateMachine::currentPlannedSecondsChanged, this, changed);
    connect(&machine, &PomodoroStateMachine::isOverflowingChanged, this, changed);
    connect(&machine, &PomodoroStateMachine::isPhasePendingChanged, this, changed);
    connect(&machine, &PomodoroStateMachine::phaseTokenChanged, this, changed);
    connect(&m_parts.manners, &MannersService::heldByChanged, this, changed);
    connect(&m_parts.settings, &PomodoroSettings::changed, this, changed);
    connect(&m_parts.statsAggregator, &StatsAggregator::changes, this, changed);
    m_dayObserver = m_parts.wallClock.onDayChanged(changed);
}

TimerStatus StatusSource::status() const
{
    const auto &machine = m_parts.stateMachine;
    const bool isIdle = machine.currentPhase() == PomodoroPhase::idle;
    const Date now = m_parts.wallClock.now();
    const Calendar calendar = m_parts.wallClock.calendar();
    TimerStatus status;
    status.phase = machine.currentPhase();
    status.isPaused = machine.isPaused();
    status.isPending = machine.isPhasePending();
    status.isOverflowing = machine.isOverflowing();
    status.remainingSeconds = isIdle ? 0 : m_parts.timer.remainingSeconds();
    status.overflowSeconds = isIdle ? 0 : m_parts.timer.overflowSeconds();
    status.plannedSeconds = machine.currentPlannedSeconds();
    status.cycleIndex = machine.currentCycleIndex();
    status.cyclesPerSet = m_parts.settings.cyclesBeforeLongBreak();
    status.phaseToken = machine.phaseToken();
    status.title = m_pill.content().title;
    status.todayCompleted = m_parts.statsAggregator.todayCount();
    status.todayFocusMinutes = m_parts.statsAggregator.focusMinutes({calendar.startOfDay(calendar.dayOf(now)), now});
    status.dailyGoal = m_parts.settings.dailyGoalPomodoros();
    status.streak = m_parts.statsAggregator.currentStreak();
    status.heldBy = m_parts.manners.heldBy();
    return status;
}

void StatusSource::connectNotify(const QMetaMethod &signal)
{
    // The first listener hears of what changes from now on.
    if (signal == QMetaMethod::fromSignal(&StatusSource::changed) && !m_last)
        m_last = status();
}

void StatusSource::setTicking(bool isTicking)
{
    if (std::exchange(m_isTicking, isTicking) == isTicking)
        return;
    if (!isTicking) {
        disconnect(&m_parts.timer, nullptr, this, nullptr);
        return;
    }
    connect(&m_parts.timer, &PomodoroTimer::remainingSecondsChanged, this, &StatusSource::checkSoon);
    connect(&m_parts.timer, &PomodoroTimer::overflowSecondsChanged, this, &StatusSource::checkSoon);
}

void StatusSource::checkSoon()
{
    if (isSignalConnected(QMetaMethod::fromSignal(&StatusSource::changed)))
        m_check.schedule();
    else
        m_last.reset();
}

void StatusSource::check()
{
    const TimerStatus now = status();
    const TimerStatus before = std::exchange(m_last, now).value_or(now);
    if (differByMoreThanTick(before, now))
        Q_EMIT changed(now);
    else if (before.title != now.title)
        Q_EMIT ticked(now);
}

}
