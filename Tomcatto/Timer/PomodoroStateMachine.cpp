#include "Timer/PomodoroStateMachine.h"

#include "Foundation/CheckedArithmetic.h"

namespace tomcatto {

PomodoroStateMachine::PomodoroStateMachine(const PomodoroSettings &settings, PomodoroTimer &timer, MainRunLoop &runLoop,
                                           IdentifierSource &identifiers, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_timer(timer)
    , m_runLoop(runLoop)
    , m_identifiers(identifiers)
{
    m_state.phaseToken = identifierText(m_identifiers.next());
    m_published = m_state;
    connect(&m_timer, &PomodoroTimer::expired, this, &PomodoroStateMachine::timerExpired);
    connect(&m_timer, &PomodoroTimer::overflowSecondsChanged, this, &PomodoroStateMachine::checkCeiling);
}

bool PomodoroStateMachine::start()
{
    return perform(
        [this] { return m_state.currentPhase == PomodoroPhase::idle && advance(PhaseExitReason::started, false); });
}

bool PomodoroStateMachine::pause()
{
    return perform([this] {
        if (m_state.currentPhase == PomodoroPhase::idle || m_state.isPaused)
            return false;
        if (catchUp())
            announceOverflow();
        m_state.isPaused = true;
        m_timer.pause();
        return true;
    });
}

bool PomodoroStateMachine::resume()
{
    return perform([this] { return resumeNow(); });
}

bool PomodoroStateMachine::skip()
{
    return perform([this] {
        if (m_state.currentPhase == PomodoroPhase::idle)
            return false;
        catchUp();
        if (m_state.isOverflowing)
            return advance(PhaseExitReason::completed, true);
        return advance(PhaseExitReason::skipped, false);
    });
}

bool PomodoroStateMachine::takeBreak()
{
    return perform([this] {
        catchUp();
        if (m_state.currentPhase == PomodoroPhase::working && m_state.isOverflowing)
            return advance(PhaseExitReason::completed, true);
        return isBreak(m_state.currentPhase) && resumeNow();
    });
}

bool PomodoroStateMachine::reset()
{
    return perform([this] { return returnToIdle(PhaseExitReason::reset); });
}

bool PomodoroStateMachine::extend(qint64 seconds)
{
    return perform([this, seconds] { return extendNow(seconds); });
}

bool PomodoroStateMachine::completeBreak()
{
    return perform([this] { return isBreak(m_state.currentPhase) && advance(PhaseExitReason::completed, false); });
}

bool PomodoroStateMachine::terminate()
{
    return perform([this] { return returnToIdle(PhaseExitReason::terminated); });
}

bool PomodoroStateMachine::perform(Operation operation)
{
    if (m_isPerforming) {
        m_waiting.push_back(std::move(operation));
        return true;
    }
    m_isPerforming = true;
    const bool applied = operation();
    publish();
    while (!m_waiting.empty()) {
        const Operation next = std::move(m_waiting.front());
        m_waiting.pop_front();
        next();
        publish();
    }
    m_isPerforming = false;
    return applied;
}

void PomodoroStateMachine::publish()
{
    const State before = std::exchange(m_published, m_state);
    const State now = m_state;
    if (before.currentPhase != now.currentPhase)
        Q_EMIT currentPhaseChanged(now.currentPhase);
    if (before.currentCycleIndex != now.currentCycleIndex)
        Q_EMIT currentCycleIndexChanged(now.currentCycleIndex);
    if (before.isPaused != now.isPaused)
        Q_EMIT isPausedChanged(now.isPaused);
    if (before.currentPlannedSeconds != now.currentPlannedSeconds)
        Q_EMIT currentPlannedSecondsChanged(now.currentPlannedSeconds);
    if (before.isOverflowing != now.isOverflowing)
        Q_EMIT isOverflowingChanged(now.isOverflowing);
    if (before.isPhasePending != now.isPhasePending)
        Q_EMIT isPhasePendingChanged(now.isPhasePending);
    if (before.phaseToken != now.phaseToken)
        Q_EMIT phaseTokenChanged(now.phaseToken);
    for (const auto &event : std::exchange(m_events, {}))
        event();
}

bool PomodoroStateMachine::advance(PhaseExitReason reason, bool forbidsHolding)
{
    const State left = m_state;
    const PhaseStep next = phaseAfter({left.currentPhase, left.currentCycleIndex}, m_settings.cyclesBeforeLongBreak());
    const bool holds = reason == PhaseExitReason::completed && !forbidsHolding && !begins(next.phase);

    m_state = {};
    m_state.currentPhase = next.phase;
    m_state.currentCycleIndex = next.cycleIndex;
    m_state.currentPlannedSeconds = m_settings.durationSeconds(next.phase);
    m_state.isPaused = holds;
    m_state.isPhasePending = holds;
    m_state.phaseToken = identifierText(m_identifiers.next());
    const PhaseTransition transition{left.currentPhase,          next.phase,         next.cycleIndex, reason,
                                     left.currentPlannedSeconds, left.hasReachedPlan};
    m_events.emplace_back([this, transition] { Q_EMIT transitioned(transition); });

    m_isExpiryOwed = false;
    m_isStartingTimer = true;
    m_timer.start(m_state.currentPlannedSeconds, next.phase == PomodoroPhase::working && m_settings.overflowEnabled());
    m_isStartingTimer = false;
    if (holds)
        m_timer.pause();
    else if (m_isExpiryOwed)
        expireSoon();
    return true;
}

bool PomodoroStateMachine::returnToIdle(PhaseExitReason reason)
{
    if (m_state.currentPhase == PomodoroPhase::idle)
        return false;
    catchUp();
    const State left = std::exchange(m_state, {});
    m_state.phaseToken = identifierText(m_identifiers.next());
    m_isExpiryOwed = false;
    m_timer.stop();
    const PhaseTransition transition{left.currentPhase,          PomodoroPhase::idle, 0, reason,
                                     left.currentPlannedSeconds, left.hasReachedPlan};
    m_events.emplace_back([this, transition] { Q_EMIT transitioned(transition); });
    return true;
}

bool PomodoroStateMachine::resumeNow()
{
    if (m_state.currentPhase == PomodoroPhase::idle || !m_state.isPaused)
        return false;
    m_state.isPaused = false;
    m_state.isPhasePending = false;
    m_state.isCeilingPaused = false;
    if (m_timer.canResume())
        m_timer.resume();
    else
        m_waiting.push_front([this] { return expireNow(); });
    return true;
}

bool PomodoroStateMachine::extendNow(qint64 seconds)
{
    if (seconds <= 0 || m_state.currentPhase == PomodoroPhase::idle || !m_timer.canExtend())
        return false;
    const bool wasCeilingPaused = m_state.isCeilingPaused;
    if (catchUp())
        announceOverflow();
    // Without overtime an end that is put off has not been reached.
    m_state.hasReachedPlan = m_state.hasReachedPlan && m_timer.allowsOverflow();
    if (m_state.isOverflowing) {
        m_state.currentPlannedSeconds = checkedAdd(m_state.currentPlannedSeconds, m_timer.overflowSeconds());
        m_state.isOverflowing = false;
    }
    m_state.currentPlannedSeconds = checkedAdd(m_state.currentPlannedSeconds, seconds);
    m_state.ceilingFired = false;
    if (!m_state.isPhasePending)
        m_state.phaseToken = identifierText(m_identifiers.next());
    m_timer.extend(seconds);
    if (wasCeilingPaused)
        resumeNow();
    return true;
}

bool PomodoroStateMachine::expireNow()
{
    if (m_state.currentPhase == PomodoroPhase::idle || m_state.isPaused)
        return false;
    if (m_state.currentPhase == PomodoroPhase::working && m_timer.isRunning()) {
        if (catchUp())
            announceOverflow();
        return true;
    }
    m_state.hasReachedPlan = true;
    return advance(PhaseExitReason::completed, false);
}

/// Notices a planned end that has passed since the last tick. @return whether overtime begins with it, which is worth
/// an event unless the phase is left at once
bool PomodoroStateMachine::catchUp()
{
    m_timer.refresh();
    if (!m_timer.isRunning() || m_timer.remainingSeconds() > 0)
        return false;
    m_state.hasReachedPlan = true;
    return m_timer.allowsOverflow() && !std::exchange(m_state.isOverflowing, true);
}

void PomodoroStateMachine::announceOverflow()
{
    m_events.emplace_back([this] { Q_EMIT overflowBegan(); });
}

void PomodoroStateMachine::timerExpired()
{
    if (m_isStartingTimer)
        m_isExpiryOwed = true;
    else
        perform([this, token = m_state.phaseToken] { return token == m_state.phaseToken && expireNow(); });
}

void PomodoroStateMachine::expireSoon()
{
    m_runLoop.async(*this, [this, token = m_state.phaseToken] {
        if (token == m_state.phaseToken && m_isExpiryOwed)
            perform([this] { return expireNow(); });
    });
}

void PomodoroStateMachine::checkCeiling()
{
    if (m_timer.overflowSeconds() < overflowCeilingSeconds)
        return;
    perform([this] {
        if (!m_state.isOverflowing || m_state.isPaused || m_state.ceilingFired ||
            m_timer.overflowSeconds() < overflowCeilingSeconds)
            return false;
        m_state.ceilingFired = true;
        m_state.isPaused = true;
        m_state.isCeilingPaused = true;
        m_timer.pause();
        m_events.emplace_back([this] { Q_EMIT ceilingReached(); });
        return true;
    });
}

bool PomodoroStateMachine::begins(PomodoroPhase phase) const
{
    return startsByItself(phase) && (!isBreak(phase) || !m_mayBreakBegin || m_mayBreakBegin());
}

bool PomodoroStateMachine::startsByItself(PomodoroPhase phase) const
{
    if (isBreak(phase))
        return m_settings.autoStartBreaks() && !m_settings.overflowEnabled();
    return m_settings.autoStartFocus();
}

}
