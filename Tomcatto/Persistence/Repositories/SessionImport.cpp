#include "Persistence/Repositories/SessionImport.h"

#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Platform/Ports/IdentifierSource.h"

#include <algorithm>
#include <numeric>

namespace tomcatto {

namespace {

using Sessions = std::vector<ImportedSession>;

/// What a phase is stored as that this program does not know.
QString storedPhase(PomodoroPhase phase)
{
    return phase == PomodoroPhase::idle ? QStringLiteral("unknown") : rawValue(phase);
}

/// For each run of equal sessions in `order` its first place, and the end.
std::vector<std::size_t> firstPlaces(const Sessions &sessions, const std::vector<quint32> &order)
{
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < order.size(); ++place) {
        if (place == 0 || sessions[order[place]] != sessions[order[place - 1]])
            places.push_back(place);
    }
    places.push_back(order.size());
    return places;
}

/// Takes out of the sessions those that are stored already.
StoreResult<void> dropStored(StoreConnection &connection, Sessions &sessions)
{
    std::vector<quint32> order(sessions.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {}, [&sessions](quint32 place) { return std::pair(sessions[place], place); });
    const std::vector<std::size_t> runs = firstPlaces(sessions, order);
    std::vector<bool> isStored(sessions.size());
    const auto values = [&](std::size_t run, std::vector<StoreValue> &bound) {
        const ImportedSession &session = sessions[order[runs[run]]];
        bound = {session.startedAt, qint64{session.actualSeconds}, storedPhase(session.phase),
                 static_cast<qint64>(session.ending)};
    };
    const auto mark = [&](std::size_t run, const StoreRow &row) {
        const auto stored = std::min(std::size_t{row.integer<quint32>(0)}, runs[run + 1] - runs[run]);
        for (std::size_t place = runs[run]; place < runs[run] + stored; ++place)
            isStored[order[place]] = true;
    };
    if (auto asked = connection.fetchEach(sessionQueries::countEqual, runs.size() - 1, values, mark); !asked)
        return asked;
    std::erase_if(sessions, [&, place = std::size_t{0}](const ImportedSession &) mutable { return isStored[place++]; });
    return {};
}

/// From the last to the first, since of those with one start the one that was written last is listed first.
StoreResult<void> insertAll(StoreConnection &connection, const Sessions &sessions, const QUuid &seed)
{
    const auto values = [&](std::size_t count, std::vector<StoreValue> &bound) {
        const ImportedSession &session = sessions[sessions.size() - 1 - count];
        const qint64 length = session.actualSeconds;
        bound = {identifierText(QUuid::createUuidV5(seed, QByteArray::number(static_cast<qint64>(count)))),
                 storedPhase(session.phase),
                 static_cast<double>(session.startedAt),
                 static_cast<double>(session.startedAt + length),
                 length,
                 length,
                 qint64{0},
                 qint64{session.ending == SessionEnding::completed},
                 qint64{session.ending == SessionEnding::skipped}};
    };
    return connection.fetchEach(sessionQueries::insert, sessions.size(), values, {});
}

}

StoreResult<qint64> importSessions(CoreDataStack &stack, std::vector<ImportedSession> sessions, const QUuid &seed)
{
    const auto change = [&](StoreConnection &connection) -> StoreResult<void> {
        if (auto dropped = dropStored(connection, sessions); !dropped)
            return dropped;
        return insertAll(connection, sessions, seed);
    };
    // Those who follow additions one by one are better off beginning anew.
    const auto saved = stack.newBackgroundContext().saveAndWait(change, HistoryChange::rewritten);
    return saved ? StoreResult<qint64>(static_cast<qint64>(sessions.size())) : std::unexpected(saved.error());
}

}
