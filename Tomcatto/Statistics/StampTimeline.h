#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <vector>

namespace tomcatto {

/// The completed work phases in the order of their starts, with running sums, so that the focus time of any interval is
/// two binary searches. A value.
class StampTimeline final
{
public:
    /// Phases whose start the calendar does not reach are left out. A sum of seconds beyond 64 bits is fatal.
    explicit StampTimeline(std::vector<CompletedWorkStamp> stamps);

    /// Adds a phase after those that started no later: at once where it is the latest, else in proportion to those that
    /// come after it.
    /// @return its position; nothing if the calendar does not reach its start, so that it is left out
    std::optional<std::size_t> add(const CompletedWorkStamp &stamp);
    [[nodiscard]] std::size_t size() const noexcept { return m_stamps.size(); }
    [[nodiscard]] Date startedAt(std::size_t position) const { return m_stamps[position].startedAt; }
    /// Position of the first phase that started at `date` or later, searched from position `from` on.
    [[nodiscard]] std::size_t lowerBound(Date date, std::size_t from = 0) const;
    /// Seconds of the phases at the positions from `first` up to, not including, `end`.
    [[nodiscard]] qint64 seconds(std::size_t first, std::size_t end) const;

private:
    void sumFrom(std::size_t position);

    std::vector<CompletedWorkStamp> m_stamps;
    /// The sum of all phases before each position; one entry more than phases.
    std::vector<qint64> m_sums;
};

}
