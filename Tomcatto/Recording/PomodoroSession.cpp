#include "Recording/PomodoroSession.h"

#include "Foundation/CheckedArithmetic.h"
#include "Recording/InFlightSessionRecovery.h"
#include "Timer/TimerArithmetic.h"

#include <QtCore/QPointer>

namespace tomcatto {

namespace {

constexpr std::chrono::seconds heartbeatInterval{60};

}

PomodoroSession::PomodoroSession(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                                 const PomodoroSettings &settings, SessionRecordWriter &sessionRepository,
                                 InFlightSessionStore &inFlightStore, const Surroundings &surroundings, QObject *parent)
    : QObject(parent)
    , m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
    , m_sessionRepository(sessionRepository)
    , m_inFlightStore(inFlightStore)
    , m_surroundings(surroundings)
{
    connect(&m_stateMachine, &PomodoroStateMachine::transitioned, this, &PomodoroSession::handleTransition);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &PomodoroSession::handlePause);
    connect(&m_stateMachine, &PomodoroStateMachine::currentPlannedSecondsChanged, this, &PomodoroSession::handlePlan);
    connect(&m_stateMachine, &PomodoroStateMachine::overflowBegan, this, &PomodoroSession::handleOverflow);
}

void PomodoroSession::recover()
{
    const auto marker = m_inFlightStore.load();
    // On disk before anything can fail over the marker's values, so that a bad one is never met twice.
    m_inFlightStore.clear();
    const bool isCleared = m_inFlightStore.synchronize();
    if (!marker)
        return;
    if (!isCleared) {
        m_logger.error(
            QStringLiteral("The phase of the last run is not recorded: its marker cannot be removed, and every "
                           "start would record it again"));
        return;
    }
    const auto request = recoveredRequest(*marker, m_surroundings.wallClock.now(), m_surroundings.wallClock.calendar(),
                                          m_surroundings.identifiers.next());
    if (request)
        m_sessionRepository.insertRecovered(*request);
}

void PomodoroSession::noteActivity()
{
    settleRecords();
    if (m_heartbeat.isActive())
        heartbeat();
}

void PomodoroSession::recordTermination()
{
    m_stateMachine.terminate();
    settleRecords();
}

void PomodoroSession::handleTransition(const PhaseTransition &transition)
{
    const auto ended = transition.previous == PomodoroPhase::idle ? std::nullopt : endedPhase(transition);
    const quint64 record = ended ? ++m_lastRecord : m_lastRecord;
    beginBooks(transition);
    if (!ended)
        return;
    const InsertMode mode =
        transition.reason == PhaseExitReason::terminated ? InsertMode::synchronous : InsertMode::asynchronous;
    m_sessionRepository.insert(*ended, mode, [recorder = QPointer(this), record] {
        if (recorder)
            recorder->recordWritten(record);
    });
}

void PomodoroSession::recordWritten(quint64 record)
{
    // The last one of the process overtakes those whose turn of the main loop no longer comes.
    m_lastWrittenRecord = std::max(m_lastWrittenRecord, record);
    saveMarker();
}

/// The main loop may no longer tell of records that are still under way.
void PomodoroSession::settleRecords()
{
    m_sessionRepository.waitForWrites();
    recordWritten(m_lastRecord);
}

std::optional<PomodoroSessionInsertRequest> PomodoroSession::endedPhase(const PhaseTransition &transition) const
{
    if (!m_inFlightStartedAt || m_inFlightPhase == PomodoroPhase::idle)
        return std::nullopt;
    const quint64 now = m_surroundings.clock.nowNanoseconds();
    quint64 paused = m_inFlightPausedNanoseconds;
    if (m_inFlightPausedSinceNanoseconds)
        paused = checkedAdd(paused, checkedSubtract(now, *m_inFlightPausedSinceNanoseconds));
    const bool reachedPlan = transition.previousReachedPlan;

    PomodoroSessionInsertRequest request;
    request.id = m_surroundings.identifiers.next();
    request.phase = m_inFlightPhase;
    request.startedAt = *m_inFlightStartedAt;
    request.endedAt = m_surroundings.wallClock.now();
    request.plannedDurationSeconds = checkedNarrow<qint32>(
        transition.previousPlannedSeconds >= 1 ? transition.previousPlannedSeconds : m_inFlightPlannedDurationSeconds);
    request.actualDurationSeconds = checkedNarrow<qint32>(activeSeconds(m_inFlightStartedNanoseconds, now, paused));
    request.cycleIndex = checkedNarrow<qint16>(m_inFlightCycleIndex);
    request.wasCompleted = transition.reason == PhaseExitReason::completed || reachedPlan;
    request.wasSkipped = transition.reason == PhaseExitReason::skipped && !reachedPlan;
    return request;
}

void PomodoroSession::beginBooks(const PhaseTransition &transition)
{
    const Date now = m_surroundings.wallClock.now();
    const quint64 nanoseconds = runningSince();
    const qint64 plan = m_stateMachine.currentPlannedSeconds();
    m_inFlightStartedAt = now;
    m_inFlightStartedNanoseconds = nanoseconds;
    m_inFlightPausedNanoseconds = 0;
    m_inFlightPausedSinceNanoseconds.reset();
    m_inFlightPhase = transition.current;
    m_inFlightPlannedDurationSeconds = plan >= 1 ? plan : m_settings.durationSeconds(transition.current);
    m_inFlightCycleIndex = transition.cycleIndex;
    if (transition.current == PomodoroPhase::idle) {
        m_inFlightStartedAt.reset();
        saveMarker();
        updateHeartbeat();
        return;
    }
    m_inFlightMarker = {};
    m_inFlightMarker.phase = rawValue(transition.current);
    m_inFlightMarker.startedAt = now;
    m_inFlightMarker.plannedDurationSeconds = m_inFlightPlannedDurationSeconds;
    m_inFlightMarker.cycleIndex = transition.cycleIndex;
    // Waiting for the user never counts as active time.
    if (m_stateMachine.isPhasePending()) {
        m_inFlightPausedSinceNanoseconds = nanoseconds;
        m_inFlightMarker.pausedAt = now;
    }
    saveMarker();
    updateHeartbeat();
}

void PomodoroSession::handlePause(bool isPaused)
{
    if (!keepsBooksOnCurrentPhase())
        return;
    const quint64 nanoseconds = isPaused ? m_surroundings.clock.nowNanoseconds() : runningSince();
    if (isPaused) {
        m_inFlightPausedSinceNanoseconds = nanoseconds;
        m_inFlightMarker.pausedAt = m_surroundings.wallClock.now();
    } else {
        const quint64 since = m_inFlightPausedSinceNanoseconds.value_or(nanoseconds);
        m_inFlightPausedNanoseconds = checkedAdd(m_inFlightPausedNanoseconds, checkedSubtract(nanoseconds, since));
        m_inFlightPausedSinceNanoseconds.reset();
        m_inFlightMarker.pausedAt.reset();
        m_inFlightMarker.pausedSeconds = static_cast<qint64>(m_inFlightPausedNanoseconds / nanosecondsPerSecond);
        m_inFlightMarker.lastActiveAt = m_surroundings.wallClock.now();
    }
    saveMarker();
    updateHeartbeat();
}

void PomodoroSession::handlePlan(qint64 plannedSeconds)
{
    if (!keepsBooksOnCurrentPhase() || plannedSeconds <= m_inFlightPlannedDurationSeconds)
        return;
    m_inFlightPlannedDurationSeconds = plannedSeconds;
    m_inFlightMarker.plannedDurationSeconds = plannedSeconds;
    saveMarker();
}

void PomodoroSession::handleOverflow()
{
    if (!keepsBooksOnCurrentPhase())
        return;
    m_inFlightMarker.reachedPlanAt = m_surroundings.wallClock.now();
    saveMarker();
}

void PomodoroSession::heartbeat()
{
    m_inFlightMarker.lastActiveAt = m_surroundings.wallClock.now();
    saveMarker();
}

/// The marker of a phase that ended stays until its record is written, so that a crash in between loses nothing; that
/// nothing is then recorded twice is the recovery's care.
void PomodoroSession::saveMarker()
{
    if (m_lastWrittenRecord != m_lastRecord)
        return;
    if (m_inFlightPhase == PomodoroPhase::idle)
        m_inFlightStore.clear();
    else
        m_inFlightStore.save(m_inFlightMarker);
}

void PomodoroSession::updateHeartbeat()
{
    const bool isRunning = m_inFlightPhase != PomodoroPhase::idle && !m_inFlightPausedSinceNanoseconds;
    if (!isRunning)
        m_heartbeat.cancel();
    else if (!m_heartbeat.isActive())
        m_heartbeat = m_surroundings.runLoop.every(heartbeatInterval, [this] { heartbeat(); });
}

bool PomodoroSession::keepsBooksOnCurrentPhase() const
{
    return m_inFlightPhase != PomodoroPhase::idle && m_inFlightPhase == m_stateMachine.currentPhase();
}

/// The books begin with the reading the deadline counts from. A later one would miss what other observers took since
/// then, and a whole phase would come out a second short of its plan.
quint64 PomodoroSession::runningSince() const
{
    const auto since = m_timer.runningSinceNanoseconds();
    return since ? *since : m_surroundings.clock.nowNanoseconds();
}

}
