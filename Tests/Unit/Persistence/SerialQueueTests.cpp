#include "Persistence/SerialQueue.h"

#include <gtest/gtest.h>
#include <numeric>
#include <vector>

using namespace tomcatto;

TEST(SerialQueueTests, runsEveryJobInOrderAndFinishesBeforeItIsDestroyed)
{
    std::vector<int> order;
    {
        SerialQueue queue;
        for (int job = 0; job < 100; ++job)
            queue.async([&order, job] { order.push_back(job); });
        queue.sync([&] {
            order.push_back(100);
            // Waiting for the queue from within it must not wait for itself.
            queue.sync([&order] { order.push_back(101); });
            queue.drain();
            queue.async([&order] { order.push_back(102); });
        });
        queue.drain();
        queue.async([&order] { order.push_back(103); });
    }
    std::vector<int> expected(104);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(order, expected);
}
