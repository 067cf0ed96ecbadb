#pragma once

#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Timer/PhaseSequence.h"
#include "Timer/PomodoroSettings.h"
#include "Timer/PomodoroTimer.h"

#include <deque>

namespace tomcatto {

/// Owns the sequence of phases and offers the operations that every surface calls. An operation stores its whole new
/// state, then emits the changes in field order, then its events; an operation called from a handler runs after the
/// current one has finished. Each operation tells whether it applied (one that had to wait tells true). One that comes
/// between the planned end and the tick that would notice it finds the plan reached. Main thread only.
class PomodoroStateMachine final : public QObject
{
    Q_OBJECT

public:
    /// Starts idle with cycle index 0.
    PomodoroStateMachine(const PomodoroSettings &settings, PomodoroTimer &timer, MainRunLoop &runLoop,
                         IdentifierSource &identifiers, QObject *parent = nullptr);

    [[nodiscard]] PomodoroPhase currentPhase() const noexcept { return m_state.currentPhase; }
    /// Work phases finished in the set, from 0.
    [[nodiscard]] qint64 currentCycleIndex() const noexcept { return m_state.currentCycleIndex; }
    [[nodiscard]] bool isPaused() const noexcept { return m_state.isPaused; }
    /// Planned length of the phase, extensions included, in seconds; 0 while idle.
    [[nodiscard]] qint64 currentPlannedSeconds() const noexcept { return m_state.currentPlannedSeconds; }
    /// Whether the work phase runs past its planned end.
    [[nodiscard]] bool isOverflowing() const noexcept { return m_state.isOverflowing; }
    /// Whether the phase waits for the user to start it.
    [[nodiscard]] bool isPhasePending() const noexcept { return m_state.isPhasePending; }
    /// Tells two phases of the same kind apart: a fresh upper-case UUID for each, renewed by an extension.
    [[nodiscard]] const QString &phaseToken() const noexcept { return m_state.phaseToken; }
    /// Whether the settings let the phase begin by itself when the one before it completes.
    [[nodiscard]] bool startsByItself(PomodoroPhase phase) const;

    /// Asked in the middle of an operation, of which it sees nothing yet, where a break that is due would begin by
    /// itself; one that may not waits for the user. Without a question each one may.
    void setBreakQuestion(std::function<bool()> mayBegin) { m_mayBreakBegin = std::move(mayBegin); }

    /// From idle: begins the first work phase.
    bool start();
    /// Any running phase.
    bool pause();
    /// Any paused phase, a pending one as well. One that has no time left and may not overflow completes.
    bool resume();
    /// Ends the phase as skipped; an overflowing one as `takeBreak`.
    bool skip();
    /// Overflowing work: ends it as completed and runs the break at once. A break: resumes it.
    bool takeBreak();
    /// Back to idle and to the first cycle.
    bool reset();
    /// Lengthens the phase by whole seconds above 0; overflow run so far becomes part of the plan.
    bool extend(qint64 seconds);
    /// Ends a break as completed, as if its time had run out; the next phase may be held.
    bool completeBreak();
    /// Ends the phase because the application ends: like a reset, with that reason.
    bool terminate();

Q_SIGNALS:
    void currentPhaseChanged(tomcatto::PomodoroPhase phase);
    void currentCycleIndexChanged(qint64 index);
    void isPausedChanged(bool isPaused);
    void currentPlannedSecondsChanged(qint64 seconds);
    void isOverflowingChanged(bool isOverflowing);
    void isPhasePendingChanged(bool isPending);
    void phaseTokenChanged(const QString &token);
    /// The phase changed (`transitionSubject`).
    void transitioned(const tomcatto::PhaseTransition &transition);
    /// A work phase passed its planned end and goes on (`overflowSubject`).
    void overflowBegan();
    /// Overflow reached its ceiling and was paused (`ceilingSubject`).
    void ceilingReached();

private:
    struct State
    {
        PomodoroPhase currentPhase = PomodoroPhase::idle;
        qint64 currentCycleIndex = 0;
        bool isPaused = false;
        qint64 currentPlannedSeconds = 0;
        bool isOverflowing = false;
        bool isPhasePending = false;
        bool hasReachedPlan = false;
        bool ceilingFired = false;
        bool isCeilingPaused = false;
        QString phaseToken;
    };
    using Operation = std::function<bool()>;

    bool perform(Operation operation);
    void publish();
    bool advance(PhaseExitReason reason, bool forbidsHolding);
    bool returnToIdle(PhaseExitReason reason);
    bool resumeNow();
    bool extendNow(qint64 seconds);
    bool expireNow();
    bool catchUp();
    void announceOverflow();
    void timerExpired();
    void expireSoon();
    void checkCeiling();
    [[nodiscard]] bool begins(PomodoroPhase phase) const;

    State m_state;
    State m_published;
    const PomodoroSettings &m_settings;
    PomodoroTimer &m_timer;
    MainRunLoop &m_runLoop;
    IdentifierSource &m_identifiers;
    std::function<bool()> m_mayBreakBegin;
    std::deque<Operation> m_waiting;
    std::vector<std::function<void()>> m_events;
    bool m_isPerforming = false;
    bool m_isStartingTimer = false;
    // A plan of 0 expired when it was started; the phase ends once it runs.
    bool m_isExpiryOwed = false;
};

}
