#include "Persistence/Repositories/SessionRows.h"

#include "Foundation/CheckedArithmetic.h"
#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

namespace {

StoreValue dateValue(const std::optional<Date> &date)
{
    return date ? StoreValue(secondsSince1970(*date)) : StoreValue();
}

}

std::vector<StoreValue> sessionValues(const PomodoroSessionInsertRequest &request)
{
    return sessionValues(
        PomodoroSessionRecord{.id = request.id,
                              .phase = rawValue(request.phase),
                              .startedAt = request.startedAt,
                              .endedAt = request.endedAt,
                              .plannedDurationSeconds = checkedNarrow<qint32>(request.plannedDurationSeconds),
                              .actualDurationSeconds = checkedNarrow<qint32>(request.actualDurationSeconds),
                              .cycleIndex = checkedNarrow<qint16>(request.cycleIndex),
                              .wasCompleted = request.wasCompleted,
                              .wasSkipped = request.wasSkipped});
}

std::vector<StoreValue> sessionValues(const PomodoroSessionRecord &record)
{
    return {identifierText(record.id),
            record.phase,
            dateValue(record.startedAt),
            dateValue(record.endedAt),
            qint64{record.plannedDurationSeconds},
            qint64{record.actualDurationSeconds},
            qint64{record.cycleIndex},
            qint64{record.wasCompleted},
            qint64{record.wasSkipped}};
}

PomodoroSessionRecord sessionRecord(const StoreRow &row)
{
    return {.id = row.identifier(0),
            .phase = row.text(1),
            .startedAt = row.date(2),
            .endedAt = row.date(3),
            .plannedDurationSeconds = row.integer<qint32>(4),
            .actualDurationSeconds = row.integer<qint32>(5),
            .cycleIndex = row.integer<qint16>(6),
            .wasCompleted = row.boolean(7),
            .wasSkipped = row.boolean(8)};
}

}
