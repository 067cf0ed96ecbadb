#include "Statistics/StampTimeline.h"

#include "Foundation/Calendar.h"
#include "Foundation/CheckedArithmetic.h"

#include <algorithm>

namespace tomcatto {

namespace {

// Phases that are added later find room, so that a long history is not moved for them.
constexpr std::size_t room = 1024;

}

StampTimeline::StampTimeline(std::vector<CompletedWorkStamp> stamps)
    : m_stamps(std::move(stamps))
{
    std::erase_if(m_stamps, [](const CompletedWorkStamp &stamp) { return !Calendar::reaches(stamp.startedAt); });
    if (!std::ranges::is_sorted(m_stamps, {}, &CompletedWorkStamp::startedAt))
        std::ranges::stable_sort(m_stamps, {}, &CompletedWorkStamp::startedAt);
    m_stamps.reserve(m_stamps.size() + room);
    m_sums.reserve(m_stamps.size() + 1 + room);
    sumFrom(0);
}

std::optional<std::size_t> StampTimeline::add(const CompletedWorkStamp &stamp)
{
    if (!Calendar::reaches(stamp.startedAt))
        return std::nullopt;
    const auto place = std::ranges::upper_bound(m_stamps, stamp.startedAt, {}, &CompletedWorkStamp::startedAt);
    const auto position = static_cast<std::size_t>(place - m_stamps.begin());
    m_stamps.insert(place, stamp);
    sumFrom(position);
    return position;
}

void StampTimeline::sumFrom(std::size_t position)
{
    m_sums.resize(position + 1);
    for (; position < m_stamps.size(); ++position)
        m_sums.push_back(checkedAdd(m_sums.back(), m_stamps[position].actualSeconds));
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
