#include "Statistics/DailyCounts.h"

#include <algorithm>

namespace tomcatto {

DailyCounts::DailyCounts(const StampTimeline &timeline, const Calendar &calendar)
{
    std::size_t position = 0;
    while (position < timeline.size()) {
        const QDate day = calendar.dayOf(timeline.startedAt(position));
        // Where a zone sets its clocks back over midnight, the evening that repeats stays with the day that had begun.
        if (m_days.empty() || m_days.back() < day) {
            m_days.push_back(day);
            m_firstStamps.push_back(position);
        }
        const Date nextDay = calendar.startOfDay(day.addDays(1));
        position = std::max(position + 1, timeline.lowerBound(nextDay, position));
    }
    m_firstStamps.push_back(timeline.size());
}

std::size_t DailyCounts::lowerBound(QDate day) const
{
    return static_cast<std::size_t>(std::ranges::lower_bound(m_days, day) - m_days.begin());
}

qint64 DailyCounts::countAt(std::size_t index) const
{
    return static_cast<qint64>(m_firstStamps[index + 1] - m_firstStamps[index]);
}

qint64 DailyCounts::count(QDate first, QDate end) const
{
    const std::size_t firstStamp = m_firstStamps[lowerBound(first)];
    const std::size_t endStamp = m_firstStamps[lowerBound(end)];
    return firstStamp < endStamp ? static_cast<qint64>(endStamp - firstStamp) : 0;
}

qint64 DailyCounts::runEndingOn(QDate day, qint64 limit) const
{
    std::size_t index = lowerBound(day);
    if (index == m_days.size() || m_days[index] != day)
        return 0;
    qint64 run = 0;
    while (run < limit && m_days[index] == day.addDays(-run)) {
        ++run;
        if (index == 0)
            break;
        --index;
    }
    return run;
}

qint64 DailyCounts::longestRun() const
{
    qint64 longest = 0;
    qint64 run = 0;
    QDate expected;
    for (const QDate day : m_days) {
        run = day == expected ? run + 1 : 1;
        longest = std::max(longest, run);
        expected = day.addDays(1);
    }
    return longest;
}

}
