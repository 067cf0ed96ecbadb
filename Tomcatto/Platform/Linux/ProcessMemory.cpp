#include "Platform/Linux/ProcessMemory.h"

#include <algorithm>
#include <cstdint>
#include <fcntl.h>
#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace tomcatto {

namespace {

// Of an entry of /proc/self/pagemap.
constexpr std::uint64_t isPresent = 1ULL << 63U;
constexpr std::uint64_t isSwapped = 1ULL << 62U;
constexpr std::uint64_t isOfFile = 1ULL << 61U;

/// Whether every page in memory is still the file's. One that was written to, by a debugger or by a library that
/// patches itself, is the process's own and would be lost. False also where that cannot be told.
bool isUnchanged(int pageMap, std::uintptr_t begin, std::uintptr_t end, std::size_t pageSize)
{
    std::vector<std::uint64_t> pages((end - begin) / pageSize);
    const auto size = pages.size() * sizeof(std::uint64_t);
    const auto offset = static_cast<off_t>(begin / pageSize * sizeof(std::uint64_t));
    if (::pread(pageMap, pages.data(), size, offset) != static_cast<ssize_t>(size))
        return false;
    return std::ranges::all_of(pages, [](std::uint64_t page) {
        return (page & isPresent) != 0 ? (page & isOfFile) != 0 : (page & isSwapped) == 0;
    });
}

/// For `dl_iterate_phdr`, whose lock keeps the libraries where they are.
int unmapUnchangedPages(dl_phdr_info *object, std::size_t /*size*/, void *context)
{
    const int pageMap = *static_cast<const int *>(context);
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    for (std::size_t index = 0; index < object->dlpi_phnum; ++index) {
        const auto &segment = object->dlpi_phdr[index];
        // What relocations have been written to lies in writable segments, even where it is protected afterwards.
        if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0)
            continue;
        const std::uintptr_t address = object->dlpi_addr + segment.p_vaddr;
        const std::uintptr_t begin = address / pageSize * pageSize;
        const std::uintptr_t end = (address + segment.p_memsz) / pageSize * pageSize;
        if (begin < end && isUnchanged(pageMap, begin, end, pageSize))
            // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers.
            ::madvise(reinterpret_cast<void *>(begin), end - begin, MADV_DONTNEED);
    }
    return 0;
}

}

void useOneAllocatorArena()
{
    ::mallopt(M_ARENA_MAX, 1);
}

void giveBackUnusedMemory()
{
    ::malloc_trim(0);
    int pageMap = ::open("/proc/self/pagemap", O_RDONLY | O_CLOEXEC);
    if (pageMap < 0)
        return;
    ::dl_iterate_phdr(unmapUnchangedPages, &pageMap);
    ::close(pageMap);
}

}
