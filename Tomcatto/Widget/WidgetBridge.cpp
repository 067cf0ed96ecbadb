#include "Widget/WidgetBridge.h"

namespace tomcatto {

namespace {

constexpr std::chrono::milliseconds quietTime{250};
constexpr std::chrono::milliseconds patience{1'000};
constexpr Seconds oneDay{86'400};

}

WidgetBridge::WidgetBridge(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                           const PomodoroSettings &settings, const StatsAggregator &statsAggregator,
                           const Surroundings &surroundings, QObject *parent)
    : QObject(parent)
    , m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
    , m_statsAggregator(statsAggregator)
    , m_wallClock(surroundings.wallClock)
    , m_runLoop(surroundings.runLoop)
    , m_widgetCenter(surroundings.widgetCenter)
    , m_file(surroundings.snapshotFile)
{
}

void WidgetBridge::start()
{
    connect(&m_timer, &PomodoroTimer::remainingSecondsChanged, this, &WidgetBridge::changed);
    connect(&m_timer, &PomodoroTimer::overflowSecondsChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::currentCycleIndexChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::isOverflowingChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::isPhasePendingChanged, this, &WidgetBridge::changed);
    connect(&m_stateMachine, &PomodoroStateMachine::phaseTokenChanged, this, &WidgetBridge::changed);
    connect(&m_settings, &PomodoroSettings::changed, this, &WidgetBridge::changed);
    connect(&m_statsAggregator, &StatsAggregator::changes, this, &WidgetBridge::changed);
    m_dayObserver = m_wallClock.onDayChanged([this] { changed(); });
    changed();
}

void WidgetBridge::writeFinalSnapshot()
{
    refresh();
}

void WidgetBridge::changed()
{
    m_quietTimer = m_runLoop.after(quietTime, [this] { refresh(); });
    if (!m_patienceTimer.isActive())
        m_patienceTimer = m_runLoop.after(patience, [this] { refresh(); });
}

void WidgetBridge::refresh()
{
    m_quietTimer.cancel();
    m_patienceTimer.cancel();
    if (!m_file.isAvailable())
        return;
    const WidgetSnapshot current = snapshot();
    const auto written = m_file.write(current, m_widgetCenter);
    if (!written && !std::exchange(m_hasFailed, true))
        m_logger.error(QStringLiteral("The widget's snapshot cannot be written: ") + written.error());
    if (!written)
        return;
    m_hasFailed = false;
    const bool isNews = !m_told || !differInTimeOnly(*m_told, current);
    if (isNews)
        m_told = current;
    m_widgetCenter.reloadTimelines(widgetKind, isNews ? TimelineNews::changed : TimelineNews::timePassed);
}

void WidgetBridge::countdown(WidgetSnapshot &snapshot, Date now) const
{
    if (snapshot.phase == WidgetPhase::idle) {
        snapshot.staticSeconds = m_settings.workDurationSeconds();
        return;
    }
    const qint64 overflow = m_timer.overflowSeconds();
    const qint64 remaining = m_timer.remainingSeconds();
    snapshot.staticSeconds = snapshot.isOverflowing ? overflow : remaining;
    if (snapshot.isOverflowing)
        snapshot.overflowStartedAt = now - Seconds{static_cast<double>(overflow)};
    else if (!snapshot.isPaused && !snapshot.isPending)
        snapshot.phaseEndsAt = now + Seconds{static_cast<double>(remaining)};
}

WidgetSnapshot WidgetBridge::snapshot() const
{
    const Date now = m_wallClock.now();
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(now);
    const auto tomorrow = Calendar::addingDays(today, 1);
    WidgetSnapshot snapshot;
    snapshot.phase = widgetPhase(m_stateMachine.currentPhase());
    snapshot.isPaused = m_stateMachine.isPaused();
    snapshot.isOverflowing = m_stateMachine.isOverflowing();
    snapshot.isPending = m_stateMachine.isPhasePending();
    countdown(snapshot, now);
    snapshot.cycleIndex = m_stateMachine.currentCycleIndex();
    snapshot.cyclesPerSet = m_settings.cyclesBeforeLongBreak();
    snapshot.nextPhase = nextPhase(m_stateMachine.currentPhase(), snapshot.cycleIndex, snapshot.cyclesPerSet);
    snapshot.todayCompleted = m_statsAggregator.todayCount();
    snapshot.todayFocusMinutes = m_statsAggregator.focusMinutes({calendar.startOfDay(today), now});
    snapshot.dailyGoal = m_settings.dailyGoalPomodoros();
    snapshot.streak = m_statsAggregator.currentStreak();
    snapshot.validUntil = tomorrow ? calendar.startOfDay(*tomorrow) : now + oneDay;
    return snapshot;
}

}
