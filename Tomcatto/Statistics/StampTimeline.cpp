#include "Statistics/StampTimeline.h"

#include "Foundation/Calendar.h"
#include "Foundation/CheckedArithmetic.h"

#include <algorithm>

namespace tomcatto {

StampTimeline::StampTimeline(std::vector<CompletedWorkStamp> stamps)
    : m_stamps(std::move(stamps))
{
    std::erase_if(m_stamps, [](const CompletedWorkStamp &stamp) { return !Calendar::reaches(stamp.startedAt); });
    if (!std::ranges::is_sorted(m_stamps, {}, &CompletedWorkStamp::startedAt))
        std::ranges::stable_sort(m_stamps, {}, &CompletedWorkStamp::startedAt);
    m_sums.reserve(m_stamps.size() + 1);
    m_sums.push_back(0);
    for (const CompletedWorkStamp &stamp : m_stamps)
        m_sums.push_back(checkedAdd(m_sums.back(), stamp.actualSeconds));
}

std::size_t StampTimeline::lowerBound(Date date, std::size_t from) const
{
    const auto begin = m_stamps.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::ranges::lower_bound(begin, m_stamps.end(), date, {}, &CompletedWorkStamp::startedAt);
    return static_cast<std::size_t>(found - m_stamps.begin());
}

qint64 StampTimeline::seconds(std::size_t first, std::size_t end) const
{
    return first < end ? checkedSubtract(m_sums[end], m_sums[first]) : 0;
}

}
