#include "Platform/Film/FrameMemory.h"

#include <algorithm>
#include <gst/gst.h>
#include <iterator>

namespace tomcatto {
namespace {

/// What is smaller is hardly the frame of a film, and is copied if it is one after all.
constexpr std::size_t smallestPiece = 256UL * 1024;
constexpr std::size_t pageSize = 4096;

FrameMemory *served = nullptr;
GstAllocator *usual = nullptr;

GstMemory *allocate(GstAllocator *, gsize size, GstAllocationParams *wish)
{
    const std::size_t whole = wish->prefix + size + wish->padding;
    // What has to be zero around it is somebody's input.
    std::byte *piece = size < smallestPiece || wish->flags != 0 ? nullptr : served->take(whole);
    if (!piece)
        return gst_allocator_alloc(usual, size, wish);
    return gst_memory_new_wrapped(GstMemoryFlags{}, piece, whole, wish->prefix, size, piece,
                                  [](gpointer ended) { served->giveBack(static_cast<std::byte *>(ended)); });
}

}

FrameMemory::FrameMemory(std::byte *begin, std::size_t size)
    : m_begin(begin)
    , m_size(size)
    , m_free{{0, size}}
{
}

void FrameMemory::serve()
{
    served = this;
    usual = gst_allocator_find(GST_ALLOCATOR_SYSMEM);
    const auto initialise = [](gpointer kind, gpointer) { static_cast<GstAllocatorClass *>(kind)->alloc = allocate; };
    const GType kind =
        g_type_register_static_simple(gst_allocator_get_type(), "TomcattoFrameMemory", sizeof(GstAllocatorClass),
                                      initialise, sizeof(GstAllocator), nullptr, GTypeFlags{});
    gst_allocator_set_default(static_cast<GstAllocator *>(g_object_new(kind, nullptr)));
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
