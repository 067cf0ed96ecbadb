#pragma once

#include "Foundation/Logger.h"
#include "Persistence/ManagedObjectContext.h"
#include "Persistence/Repositories/SessionHistory.h"
#include "Persistence/Repositories/SessionRecordWriter.h"

#include <QtCore/QObject>

namespace tomcatto {

class CoreDataStack;
class WallClock;

/// Stores ended phases and answers every question about them. Main thread only. A query that fails is logged and
/// answers with an empty list, zero or nothing; a write that fails is logged and not passed on.
class SessionRepository final : public QObject, public SessionRecordWriter, public SessionHistory
{
    Q_OBJECT
public:
    /// Both outlive the repository. What it handed over asynchronously and has not run yet when it is destroyed is not
    /// written: call `CoreDataStack::save()` before.
    SessionRepository(CoreDataStack &stack, const WallClock &clock, QObject *parent = nullptr);
    ~SessionRepository() override;

    void insert(const PomodoroSessionInsertRequest &request, InsertMode mode,
                std::function<void()> afterWrite = {}) override;
    void waitForWrites() override;
    void insertRecovered(const PomodoroSessionInsertRequest &request) override;

    [[nodiscard]] CompletedWorkReading completedWork() const override;
    [[nodiscard]] std::optional<CompletedWorkReading>
    completedWorkAfter(const HistoryPosition &position) const override;
    [[nodiscard]] std::optional<Date> earliestSessionDate() const override;
    [[nodiscard]] std::vector<PomodoroSessionRecord> sessions(const DateInterval &interval,
                                                              std::optional<PomodoroPhase> phase = {},
                                                              std::optional<int> limit = {}) const override;
    [[nodiscard]] bool forEachSession(const DateInterval &interval,
                                      const std::function<void(const PomodoroSessionRecord &)> &visit) const override;
    [[nodiscard]] Cancellable onSave(std::function<void()> saved) const override;

    /// Start and length of every completed work phase, by ascending start.
    [[nodiscard]] std::vector<CompletedWorkStamp> completedWorkStamps() const;
    /// How many work phases were completed.
    [[nodiscard]] qint64 completedWorkCount() const;
    /// The completed work phases that started at `since` or later, by ascending start.
    [[nodiscard]] std::vector<PomodoroSessionRecord> completedWork(Date since) const;
    /// Every phase, also those without a start.
    [[nodiscard]] std::vector<PomodoroSessionRecord> allSessions() const;

    /// Deletes, in the background and as one batch, every phase that started before the calendar's date of now minus
    /// `olderThanDays` days. A day count that cannot be negated is fatal.
    void prune(qint64 olderThanDays);

Q_SIGNALS:
    /// A context of the store has saved. On the main thread.
    void didSave();
    /// A query failed, which is logged; it answers as if there were nothing.
    void fetchFailed() const;

private:
    class LifeToken
    {
    };

    using RowVisitor = std::function<void(const StoreRow &)>;
    [[nodiscard]] bool fetch(const char *sql, const std::vector<StoreValue> &values, const RowVisitor &visit) const;
    [[nodiscard]] std::vector<PomodoroSessionRecord> records(const char *sql,
                                                             const std::vector<StoreValue> &values) const;
    void performWhileAlive(std::function<void(ManagedObjectContext &)> block);

    CoreDataStack &m_stack;
    const WallClock &m_clock;
    Logger m_logger;
    /// Background blocks hold it weakly: when it is gone, so is the repository.
    std::shared_ptr<LifeToken> m_life;
};

}
