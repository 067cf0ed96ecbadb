#include "Statistics/DailyCounts.h"

#include <algorithm>

namespace tomcatto {

DailyCounts::DailyCounts(const StampTimeline &timeline, const Calendar &calendar)
{
    std::size_t position = 0;
    while (position < timeline.size()) {
        const QDate day = calendar.dayOf(timeline.startedAt(position));
        // Where a zone sets its clocks back over midnight, the evening that repeats stays with the day that had begun.
        if (m_days.empty() || m_days.back() < day)
            append(day, position, calendar);
        const Date nextDay = calendar.startOfDay(day.addDays(1));
        position = std::max(position + 1, timeline.lowerBound(nextDay, position));
    }
    m_firstStamps.push_back(timeline.size());
}

void DailyCounts::append(QDate day, std::size_t firstStamp, const Calendar &calendar)
{
    if (m_days.empty() || !calendar.areConsecutive(m_days.back(), day))
        m_runs.push_back(m_days.size());
    m_days.push_back(day);
    m_firstStamps.push_back(firstStamp);
}

bool DailyCounts::add(std::size_t position, Date startedAt, const Calendar &calendar)
{
    const QDate day = calendar.dayOf(startedAt);
    const bool isLast = position == m_firstStamps.back();
    if (isLast && (m_days.empty() || m_days.back() < day)) {
        m_firstStamps.pop_back();
        append(day, position, calendar);
        m_firstStamps.push_back(position + 1);
        return true;
    }
    const std::size_t index = isLast ? m_days.size() - 1 : lowerBound(day);
    const bool isAmongItsDay = index < m_days.size() && m_days[index] == day && m_firstStamps[index] <= position &&
                               position <= m_firstStamps[index + 1] && calendar.dayInterval(day).contains(startedAt);
    if (!isLast && !isAmongItsDay)
        return false;
    std::for_each(m_firstStamps.begin() + static_cast<std::ptrdiff_t>(index) + 1, m_firstStamps.end(),
                  [](std::size_t &first) { ++first; });
    return true;
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
    const std::size_t index = lowerBound(day);
    if (index == m_days.size() || m_days[index] != day)
        return 0;
    const std::size_t first = *std::prev(std::ranges::upper_bound(m_runs, index));
    return std::clamp<qint64>(static_cast<qint64>(index - first) + 1, 0, std::max<qint64>(limit, 0));
}

qint64 DailyCounts::longestRun() const
{
    std::size_t longest = 0;
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        longest = std::max(longest, (run + 1 < m_runs.size() ? m_runs[run + 1] : m_days.size()) - m_runs[run]);
    return static_cast<qint64>(longest);
}

}
