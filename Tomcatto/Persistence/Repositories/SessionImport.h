#pragma once

#include "Persistence/StoreError.h"
#include "Timer/PomodoroPhase.h"

#include <compare>
#include <QtCore/QUuid>
#include <vector>

namespace tomcatto {

class CoreDataStack;

/// How a phase ended, as an exported file says it.
enum class SessionEnding : quint8 { completed, skipped, interrupted };

/// All that an exported file says of one ended phase. Kept small, as a file may hold millions.
struct ImportedSession
{
    /// Seconds since 1970 in UTC.
    qint64 startedAt = 0;
    qint32 actualSeconds = 0;
    /// `idle` stands for a phase that this program does not know.
    PomodoroPhase phase = PomodoroPhase::idle;
    SessionEnding ending = SessionEnding::interrupted;

    auto operator<=>(const ImportedSession &) const = default;
};

/// Adds to the history what an exported file has and the history has not, all of it or nothing, as one save. Rows that
/// are equal count: where the file has three and the history two, one is added. A phase that is added ends its actual
/// seconds after its start, and its plan is taken to have been as long. Runs after everything handed to the store
/// before. Any thread but the store's own.
/// @param sessions newest first, as they are exported; those that began in one second are later listed in this order
/// @param seed a fresh identifier, from which those of the phases are made
/// @return how many were added
[[nodiscard]] StoreResult<qint64> importSessions(CoreDataStack &stack, std::vector<ImportedSession> sessions,
                                                 const QUuid &seed);

}
