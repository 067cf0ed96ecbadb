#pragma once

#include "Persistence/Repositories/SessionRecordWriter.h"
#include "Platform/Ports/WallClock.h"
#include "Recording/InFlightSessionStore.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// The session recorder: keeps the books on the phase in progress, hands one record for each ended phase to the store
/// and keeps the in-flight marker up to date. Connected before every other observer of the state machine. Main thread
/// only.
class PomodoroSession final : public QObject
{
    Q_OBJECT

public:
    /// What the recorder needs from the platform.
    struct Surroundings
    {
        const MonotonicClock &clock;
        const WallClock &wallClock;
        MainRunLoop &runLoop;
        IdentifierSource &identifiers;
    };

    PomodoroSession(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, const PomodoroSettings &settings,
                    SessionRecordWriter &sessionRepository, InFlightSessionStore &inFlightStore,
                    const Surroundings &surroundings, QObject *parent = nullptr);

    /// Turns a marker left by an earlier run into one record and removes it, whatever it holds. Called once at launch,
    /// before the timer is used.
    void recover();
    /// Brings the marker up to date, with the application as alive, since it may end without another word. The records
    /// of earlier phases are on disk when this returns.
    void noteActivity();
    /// Ends the running phase because the application ends. Its record is on disk when this returns, those of earlier
    /// phases too, and no marker is left.
    void recordTermination();

private:
    void handleTransition(const PhaseTransition &transition);
    [[nodiscard]] std::optional<PomodoroSessionInsertRequest> endedPhase(const PhaseTransition &transition) const;
    void beginBooks(const PhaseTransition &transition);
    void handlePause(bool isPaused);
    void handlePlan(qint64 plannedSeconds);
    void handleOverflow();
    void heartbeat();
    void recordWritten(quint64 record);
    void settleRecords();
    void saveMarker();
    void updateHeartbeat();
    [[nodiscard]] bool keepsBooksOnCurrentPhase() const;
    [[nodiscard]] quint64 runningSince() const;

    PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const PomodoroSettings &m_settings;
    SessionRecordWriter &m_sessionRepository;
    InFlightSessionStore &m_inFlightStore;
    Surroundings m_surroundings;

    std::optional<Date> m_inFlightStartedAt;
    quint64 m_inFlightStartedNanoseconds = 0;
    quint64 m_inFlightPausedNanoseconds = 0;
    std::optional<quint64> m_inFlightPausedSinceNanoseconds;
    PomodoroPhase m_inFlightPhase = PomodoroPhase::idle;
    qint64 m_inFlightPlannedDurationSeconds = 0;
    qint64 m_inFlightCycleIndex = 0;
    InFlightSessionMarker m_inFlightMarker;
    // Records are numbered from 1 as they are handed over.
    quint64 m_lastRecord = 0;
    quint64 m_lastWrittenRecord = 0;
    Cancellable m_heartbeat;
    const Logger m_logger{QStringLiteral("PomodoroSession")};
};

}
