#include "Persistence/Repositories/SessionEdits.h"

#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Persistence/Repositories/SessionRows.h"
#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

namespace {

using Record = std::optional<PomodoroSessionRecord>;

StoreResult<void> findOverlapping(StoreConnection &connection, const DateInterval &interval, Record &found)
{
    return connection.fetch(
        sessionQueries::overlapping,
        {secondsSince1970(interval.start), secondsSince1970(interval.end), SessionEdits::longestPhase.count()},
        [&found](const StoreRow &row) { found = sessionRecord(row); });
}

/// Ends a save that turned out to have nothing to do.
StoreResult<void> nothingToSave()
{
    return std::unexpected(StoreError{});
}

}

SessionEdits::Found SessionEdits::overlapping(const DateInterval &interval) const
{
    Record found;
    StoreResult<void> fetched;
    m_stack.viewContext().performAndWait(
        [&](const ManagedObjectContext &context) { fetched = findOverlapping(context.connection(), interval, found); });
    return fetched ? Found(found) : std::unexpected(fetched.error());
}

SessionEdits::Found SessionEdits::insertUnlessOverlapping(const PomodoroSessionInsertRequest &request)
{
    Record other;
    const auto change = [&](StoreConnection &connection) -> StoreResult<void> {
        if (auto looked = findOverlapping(connection, {request.startedAt, request.endedAt}, other); !looked)
            return looked;
        return other ? nothingToSave() : connection.execute(sessionQueries::insert, sessionValues(request));
    };
    const auto saved = m_stack.newBackgroundContext().saveAndWait(change, HistoryChange::added);
    return saved || other ? Found(other) : std::unexpected(saved.error());
}

SessionEdits::Found SessionEdits::remove(const QUuid &id)
{
    Record removed;
    bool isMissing = false;
    const auto change = [&](StoreConnection &connection) -> StoreResult<void> {
        qint64 number = 0;
        const auto take = [&](const StoreRow &row) {
            removed = sessionRecord(row);
            number = row.integer<qint64>(9);
        };
        if (auto looked = connection.fetch(sessionQueries::withIdentifier, {identifierText(id)}, take); !looked)
            return looked;
        isMissing = !removed;
        return isMissing ? nothingToSave() : connection.execute(sessionQueries::removeRow, {number});
    };
    const auto saved = m_stack.newBackgroundContext().saveAndWait(change, HistoryChange::rewritten);
    return saved || isMissing ? Found(removed) : std::unexpected(saved.error());
}

StoreResult<void> SessionEdits::restore(const PomodoroSessionRecord &record)
{
    const auto change = [&record](StoreConnection &connection) {
        return connection.execute(sessionQueries::insert, sessionValues(record));
    };
    return m_stack.newBackgroundContext().saveAndWait(change, HistoryChange::added);
}

}
