#pragma once

#include "Foundation/Date.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Persistence/StoreError.h"

namespace tomcatto {

class CoreDataStack;
class ManagedObjectContext;

/// Changes single phases of the stored history by hand. Each change runs after everything handed to the store before,
/// is on disk when the call returns, and is announced as a save. A failure is the caller's to tell. Main thread only.
class SessionEdits final
{
public:
    /// How long a phase lasts at most by its stamps. What says more was stamped while the clock was set.
    static constexpr Seconds longestPhase = std::chrono::days{31};

    /// A record; `nullopt` if there is none.
    using Found = StoreResult<std::optional<PomodoroSessionRecord>>;

    /// @param stack outlives this object
    explicit SessionEdits(CoreDataStack &stack)
        : m_stack(stack)
    {
    }

    /// The earliest of the phases that share time with the interval, of any known kind. Those that touch it do not, nor
    /// do those without length.
    [[nodiscard]] Found overlapping(const DateInterval &interval) const;
    /// Writes a record unless its time is taken. @return the one that takes it; nothing if the record was written
    [[nodiscard]] Found insertUnlessOverlapping(const PomodoroSessionInsertRequest &request);
    /// Deletes the record with that id, the one written last where there are several. Looks through the whole history
    /// where that is an old one or none. @return what it was; nothing if there is none
    [[nodiscard]] Found remove(const QUuid &id);
    /// Writes a record as it is.
    [[nodiscard]] StoreResult<void> restore(const PomodoroSessionRecord &record);

private:
    CoreDataStack &m_stack;
};

}
