#pragma once

#include "Foundation/Cancellable.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <vector>

namespace tomcatto {

/// What the statistics ask of the stored history; this one is that of somebody who has no store yet. A read that fails
/// answers with an empty list or nothing. Main thread only.
class SessionHistory
{
public:
    SessionHistory() = default;
    SessionHistory(const SessionHistory &) = delete;
    SessionHistory &operator=(const SessionHistory &) = delete;
    virtual ~SessionHistory() = default;

    /// Start and length of every completed work phase, earliest first, and how far the history was read for it.
    [[nodiscard]] virtual CompletedWorkReading completedWork() const { return {}; }
    /// The completed work phases that were added after a reading, in the order they were added; `nullopt` if
    /// something else has happened since, or if the reading fails.
    [[nodiscard]] virtual std::optional<CompletedWorkReading>
    completedWorkAfter(const HistoryPosition & /*position*/) const
    {
        return std::nullopt;
    }
    /// When the first stored phase of any kind started; nothing for an empty history.
    [[nodiscard]] virtual std::optional<Date> earliestSessionDate() const { return std::nullopt; }
    /// The records that started in the interval, newest first, of one phase only when given.
    /// @param limit how many at most; nothing, and a number below 1, for all
    [[nodiscard]] virtual std::vector<PomodoroSessionRecord> sessions(const DateInterval & /*interval*/,
                                                                      std::optional<PomodoroPhase> /*phase*/ = {},
                                                                      std::optional<int> /*limit*/ = {}) const
    {
        return {};
    }
    /// Hands each record that started in the interval to `visit`, newest first, without keeping them all in memory.
    /// `visit` must not write to the history.
    /// @return whether all were read
    [[nodiscard]] virtual bool
    forEachSession(const DateInterval & /*interval*/,
                   const std::function<void(const PomodoroSessionRecord &)> & /*visit*/) const
    {
        return true;
    }
    /// Calls `saved` after every change of the stored history.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): a history that changes keeps it.
    [[nodiscard]] virtual Cancellable onSave(std::function<void()> /*saved*/) const { return {}; }
};

}
