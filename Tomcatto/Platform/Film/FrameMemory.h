#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>

namespace tomcatto {

/// The memory that the application has as well, in pieces for frames. Any thread.
class FrameMemory final
{
public:
    /// @param begin the start of `size` bytes, mapped for as long as the process lives
    FrameMemory(std::byte *begin, std::size_t size);

    /// @return nothing if it is full
    [[nodiscard]] std::byte *take(std::size_t size);
    void giveBack(const std::byte *piece);
    /// Where a place lies in it; nothing for one that is elsewhere.
    [[nodiscard]] std::optional<std::size_t> offset(const void *place) const;

private:
    std::byte *const m_begin;
    const std::size_t m_size;
    std::mutex m_mutex;
    // By their places.
    std::map<std::size_t, std::size_t> m_free;
    std::map<std::size_t, std::size_t> m_taken;
};

}
