#pragma once

#include "Foundation/Calendar.h"
#include "Statistics/StampTimeline.h"

namespace tomcatto {

/// Which phases of a timeline began on which calendar date: the dates with at least one, ascending, each with the
/// position of its first phase, and where runs of consecutive dates begin. A date that a zone leaves out, as Samoa did
/// when it changed sides of the date line, breaks no run. A value.
class DailyCounts final
{
public:
    /// One pass over the timeline with one calendar conversion each way for a date that has phases.
    DailyCounts(const StampTimeline &timeline, const Calendar &calendar);

    /// Follows an addition to the timeline in the days' number at most.
    /// @param position where the timeline has put it
    /// @param calendar the one that the dates were counted by
    /// @return whether these are now the counts of the longer timeline; if not, they must be counted anew
    [[nodiscard]] bool add(std::size_t position, Date startedAt, const Calendar &calendar);

    /// The dates that have completed phases, ascending.
    [[nodiscard]] const std::vector<QDate> &days() const noexcept { return m_days; }
    /// Index into `days` of the first date not before `day`.
    [[nodiscard]] std::size_t lowerBound(QDate day) const;
    /// Position in the timeline of the first phase of the date at `index`; the timeline's end for the end of `days`.
    [[nodiscard]] std::size_t firstStamp(std::size_t index) const { return m_firstStamps[index]; }
    /// Phases on the date at `index` of `days`, at least 1.
    [[nodiscard]] qint64 countAt(std::size_t index) const;
    /// Phases on the dates from `first` up to, not including, `end`.
    [[nodiscard]] qint64 count(QDate first, QDate end) const;
    /// Consecutive dates with phases, the last of them `day`; counted up to `limit`. 0 when `day` has none.
    [[nodiscard]] qint64 runEndingOn(QDate day, qint64 limit) const;
    /// The most consecutive dates with phases.
    [[nodiscard]] qint64 longestRun() const;

private:
    void append(QDate day, std::size_t firstStamp, const Calendar &calendar);

    std::vector<QDate> m_days;
    /// One entry more than days: the timeline's end.
    std::vector<std::size_t> m_firstStamps;
    /// Indexes into days of the first date of each run.
    std::vector<std::size_t> m_runs;
};

}
