#pragma once

#include "Foundation/Cancellable.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <vector>

namespace tomcatto {

/// What the statistics ask of the stored history. A read that fails answers with an empty list or nothing. Main thread
/// only.
class SessionHistory
{
public:
    virtual ~SessionHistory() = default;

    /// Every completed work phase, earliest first.
    [[nodiscard]] virtual CompletedWorkReading completedWork() = 0;
    /// The completed work phases that were added after a reading; nothing if they are not all that has changed.
    [[nodiscard]] virtual std::optional<CompletedWorkReading> completedWorkAfter(const HistoryPosition &position) = 0;
    /// When the first stored phase of any kind started; nothing for an empty history.
    [[nodiscard]] virtual std::optional<Date> earliestSessionDate() = 0;
    /// The records that started in the interval, newest first, of one phase only or at most `limit` when given.
    [[nodiscard]] virtual std::vector<PomodoroSessionRecord>
    sessions(const DateInterval &interval, std::optional<PomodoroPhase> phase, std::optional<int> limit) = 0;
    /// Calls `saved` after every change of the stored history.
    [[nodiscard]] virtual Cancellable onSave(std::function<void()> saved) = 0;
};

}
