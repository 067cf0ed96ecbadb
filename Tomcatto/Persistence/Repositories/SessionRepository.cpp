#include "Persistence/Repositories/SessionRepository.h"

#include "Foundation/CheckedArithmetic.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Persistence/Repositories/SessionRows.h"
#include "Platform/Ports/WallClock.h"

namespace tomcatto {

namespace {

// Runs `sql` as one save of the context.
StoreResult<void> write(ManagedObjectContext &context, const char *sql, const std::vector<StoreValue> &values,
                        HistoryChange change)
{
    return context.save([&](StoreConnection &connection) { return connection.execute(sql, values); }, change);
}

void logFailure(const Logger &logger, const QString &text, const StoreResult<void> &saved)
{
    if (!saved)
        logger.error(text + saved.error().description());
}

void writeSession(ManagedObjectContext &context, const char *sql, const std::vector<StoreValue> &values,
                  const Logger &logger)
{
    logFailure(logger, QStringLiteral("Failed to insert session: "), write(context, sql, values, HistoryChange::added));
}

}

SessionRepository::SessionRepository(CoreDataStack &stack, const WallClock &clock, QObject *parent)
    : QObject(parent)
    , m_stack(stack)
    , m_clock(clock)
    , m_logger(QStringLiteral("SessionRepository"))
    , m_life(std::make_shared<LifeToken>())
{
    connect(&m_stack, &CoreDataStack::contextDidSave, this, &SessionRepository::didSave, Qt::QueuedConnection);
}

SessionRepository::~SessionRepository() = default;

void SessionRepository::insert(const PomodoroSessionInsertRequest &request, InsertMode mode,
                               std::function<void()> afterWrite)
{
    const auto write = [values = sessionValues(request), logger = m_logger](ManagedObjectContext &context) {
        writeSession(context, sessionQueries::insert, values, logger);
    };
    if (mode == InsertMode::synchronous) {
        m_stack.newBackgroundContext().performAndWait(write);
        if (afterWrite)
            afterWrite();
        return;
    }
    performWhileAlive([write, &stack = m_stack, life = std::weak_ptr(m_life),
                       afterWrite = std::move(afterWrite)](ManagedObjectContext &context) {
        write(context);
        if (!afterWrite)
            return;
        const auto call = [life, afterWrite] {
            if (!life.expired())
                afterWrite();
        };
        QMetaObject::invokeMethod(&stack, call, Qt::QueuedConnection);
    });
}

void SessionRepository::waitForWrites()
{
    m_stack.save();
}

void SessionRepository::insertRecovered(const PomodoroSessionInsertRequest &request)
{
    performWhileAlive([values = sessionValues(request), logger = m_logger](ManagedObjectContext &context) {
        writeSession(context, sessionQueries::insertRecovered, values, logger);
    });
}

void SessionRepository::prune(qint64 olderThanDays)
{
    const auto cutoff = m_clock.calendar().addingDays(m_clock.now(), checkedSubtract<qint64>(0, olderThanDays));
    // The calendar does not reach that far.
    if (!cutoff)
        return;
    performWhileAlive([seconds = secondsSince1970(*cutoff), logger = m_logger](ManagedObjectContext &context) {
        logFailure(logger, QStringLiteral("Failed to prune sessions: "),
                   write(context, sessionQueries::prune, {seconds}, HistoryChange::rewritten));
    });
}

void SessionRepository::performWhileAlive(std::function<void(ManagedObjectContext &)> block)
{
    m_stack.newBackgroundContext().perform(
        [life = std::weak_ptr(m_life), block = std::move(block)](ManagedObjectContext &context) {
            if (const auto held = life.lock())
                block(context);
        });
}

std::vector<PomodoroSessionRecord> SessionRepository::sessions(const DateInterval &interval,
                                                               std::optional<PomodoroPhase> phase,
                                                               std::optional<int> limit) const
{
    const qint64 rows = limit && *limit > 0 ? *limit : -1;
    std::vector<StoreValue> values{secondsSince1970(interval.start), secondsSince1970(interval.end), rows};
    if (!phase)
        return records(sessionQueries::inInterval, values);
    values.emplace_back(rawValue(*phase));
    return records(sessionQueries::inIntervalOfPhase, values);
}

bool SessionRepository::forEachSession(const DateInterval &interval,
                                       const std::function<void(const PomodoroSessionRecord &)> &visit) const
{
    return fetch(sessionQueries::inInterval,
                 {secondsSince1970(interval.start), secondsSince1970(interval.end), qint64{-1}},
                 [&visit](const StoreRow &row) { visit(sessionRecord(row)); });
}

std::vector<CompletedWorkStamp> SessionRepository::completedWorkStamps() const
{
    return completedWork().stamps;
}

CompletedWorkReading SessionRepository::completedWork() const
{
    // Taken before the rows are read, so what is rewritten meanwhile counts as rewritten since.
    HistoryPosition position{m_stack.rewrites(), 0};
    CompletedWorkReading reading;
    const bool isWhole = fetch(sessionQueries::completedWorkStamps, {}, [&](const StoreRow &row) {
        if (const auto startedAt = row.date(0))
            reading.stamps.push_back({*startedAt, row.integer<qint32>(1)});
        position.lastRow = row.integer<qint64>(2);
    });
    if (!isWhole)
        return {};
    reading.position = position;
    return reading;
}

std::optional<CompletedWorkReading> SessionRepository::completedWorkAfter(const HistoryPosition &position) const
{
    if (m_stack.rewrites() != position.rewrites)
        return std::nullopt;
    CompletedWorkReading reading{{}, position};
    const bool isWhole = fetch(sessionQueries::addedAfterRow, {position.lastRow}, [&reading](const StoreRow &row) {
        const auto startedAt = row.date(0);
        if (startedAt && row.boolean(3))
            reading.stamps.push_back({*startedAt, row.integer<qint32>(1)});
        reading.position->lastRow = row.integer<qint64>(2);
    });
    return isWhole ? std::optional(reading) : std::nullopt;
}

qint64 SessionRepository::completedWorkCount() const
{
    qint64 count = 0;
    static_cast<void>(fetch(sessionQueries::completedWorkCount, {},
                            [&count](const StoreRow &row) { count = row.integer<qint64>(0); }));
    return count;
}

std::vector<PomodoroSessionRecord> SessionRepository::completedWork(Date since) const
{
    return records(sessionQueries::completedWorkSince, {secondsSince1970(since)});
}

std::optional<Date> SessionRepository::earliestSessionDate() const
{
    std::optional<Date> earliest;
    static_cast<void>(
        fetch(sessionQueries::earliestStart, {}, [&earliest](const StoreRow &row) { earliest = row.date(0); }));
    return earliest;
}

Cancellable SessionRepository::onSave(std::function<void()> saved) const
{
    const auto connection = connect(this, &SessionRepository::didSave, this, std::move(saved));
    return Cancellable([connection] { disconnect(connection); });
}

std::vector<PomodoroSessionRecord> SessionRepository::allSessions() const
{
    return records(sessionQueries::all, {});
}

std::vector<PomodoroSessionRecord> SessionRepository::records(const char *sql,
                                                              const std::vector<StoreValue> &values) const
{
    std::vector<PomodoroSessionRecord> found;
    if (!fetch(sql, values, [&found](const StoreRow &row) { found.push_back(sessionRecord(row)); }))
        found.clear();
    return found;
}

bool SessionRepository::fetch(const char *sql, const std::vector<StoreValue> &values, const RowVisitor &visit) const
{
    StoreResult<void> fetched;
    m_stack.viewContext().performAndWait(
        [&](const ManagedObjectContext &context) { fetched = context.connection().fetch(sql, values, visit); });
    if (!fetched) {
        m_logger.error(QStringLiteral("Failed to fetch sessions: ") + fetched.error().description());
        Q_EMIT fetchFailed();
    }
    return fetched.has_value();
}

}
