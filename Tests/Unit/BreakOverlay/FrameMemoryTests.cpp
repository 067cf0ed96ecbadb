#include "Platform/Film/FrameMemory.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

using namespace tomcatto;

namespace {

constexpr std::size_t pageSize = 4096;

}

TEST(FrameMemoryTests, PiecesDoNotOverlapAndBecomeOneAgain)
{
    std::array<std::byte, 4 * pageSize> room{};
    FrameMemory memory(room.data(), room.size());
    // In every order of giving back: next to what is free before it, after it, on both sides, and on none.
    std::array<std::size_t, 3> order{0, 1, 2};
    do {
        const std::array pieces{memory.take(1), memory.take(pageSize + 1), memory.take(pageSize)};
        EXPECT_EQ(memory.offset(pieces[0]), 0);
        EXPECT_EQ(memory.offset(pieces[1]), pageSize);
        EXPECT_EQ(memory.offset(pieces[2] + 7), 3 * pageSize + 7);
        EXPECT_EQ(memory.take(1), nullptr) << "it is full";
        for (const std::size_t index : order)
            memory.giveBack(pieces.at(index));
        std::byte *const whole = memory.take(room.size());
        ASSERT_EQ(whole, room.data());
        memory.giveBack(whole);
    } while (std::ranges::next_permutation(order).found);
    EXPECT_EQ(memory.offset(&memory), std::nullopt);
    EXPECT_EQ(memory.offset(room.data() + room.size()), std::nullopt);
}
