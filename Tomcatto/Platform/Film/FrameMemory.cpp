#include "Platform/Film/FrameMemory.h"

#include <algorithm>
#include <iterator>

namespace tomcatto {
namespace {

constexpr std::size_t pageSize = 4096;

}

FrameMemory::FrameMemory(std::byte *begin, std::size_t size)
    : m_begin(begin)
    , m_size(size)
    , m_free{{0, size}}
{
}

std::byte *FrameMemory::take(std::size_t size)
{
    const std::size_t needed = (size + pageSize - 1) / pageSize * pageSize;
    const std::lock_guard lock(m_mutex);
    const auto found = std::ranges::find_if(m_free, [&](const auto &piece) { return piece.second >= needed; });
    if (found == m_free.end())
        return nullptr;
    const auto [place, room] = *found;
    m_free.erase(found);
    if (room > needed)
        m_free.emplace(place + needed, room - needed);
    m_taken.emplace(place, needed);
    return m_begin + place;
}

void FrameMemory::giveBack(const std::byte *piece)
{
    const std::lock_guard lock(m_mutex);
    const auto taken = m_taken.extract(static_cast<std::size_t>(piece - m_begin));
    auto freed = m_free.emplace(taken.key(), taken.mapped()).first;
    if (const auto next = std::next(freed); next != m_free.end() && freed->first + freed->second == next->first) {
        freed->second += next->second;
        m_free.erase(next);
    }
    if (freed == m_free.begin())
        return;
    const auto last = std::prev(freed);
    if (last->first + last->second == freed->first) {
        last->second += freed->second;
        m_free.erase(freed);
    }
}

std::optional<std::size_t> FrameMemory::offset(const void *place) const
{
    const auto *byte = static_cast<const std::byte *>(place);
    if (byte < m_begin || byte >= m_begin + m_size)
        return std::nullopt;
    return static_cast<std::size_t>(byte - m_begin);
}

}
