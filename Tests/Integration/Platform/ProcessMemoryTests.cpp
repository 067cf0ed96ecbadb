#include "Platform/Linux/ProcessMemory.h"

#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

using namespace tomcatto;

namespace {

constexpr std::size_t pageSize = 4096;
/// Lies in this program's file, away from everything that changes.
alignas(pageSize) constexpr std::array<char, 256 * pageSize> constants{1};

/// Resident pages that are files'.
long pagesOfFiles()
{
    long size = 0;
    long resident = 0;
    long shared = 0;
    std::ifstream("/proc/self/statm") >> size >> resident >> shared;
    return shared;
}

int touched()
{
    // Volatile, so that the compiler does not answer for the memory.
    const volatile char *const places = constants.data();
    int sum = 0;
    for (std::size_t place = 0; place < constants.size(); place += pageSize)
        sum += places[place];
    return sum;
}

}

TEST(ProcessMemoryTests, GivesBackWhatIsUnchangedAndKeepsWhatWasPatched)
{
    EXPECT_EQ(touched(), 1);
    const long before = pagesOfFiles();
    giveBackUnusedMemory();
    EXPECT_LT(pagesOfFiles(), before - 200);
    EXPECT_EQ(touched(), 1) << "it comes back";

    auto *const page = const_cast<char *>(&constants.at(5 * pageSize));
    ASSERT_EQ(::mprotect(page, pageSize, PROT_READ | PROT_WRITE), 0);
    *page = 7;
    ASSERT_EQ(::mprotect(page, pageSize, PROT_READ), 0);
    giveBackUnusedMemory();
    EXPECT_EQ(touched(), 8);
}
