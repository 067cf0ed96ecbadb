#include "Fakes/ManualClock.h"
#include "Fakes/ManualRunLoop.h"
#include "Timer/PomodoroTimer.h"
#include "Timer/TimerArithmetic.h"

#include <gtest/gtest.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

constexpr quint64 second = nanosecondsPerSecond;

class PomodoroTimerTest : public testing::Test
{
protected:
    PomodoroTimerTest()
    {
        QObject::connect(&timer, &PomodoroTimer::expired, &timer, [this] { ++expiries; });
        QObject::connect(&timer, &PomodoroTimer::remainingSecondsChanged, &timer,
                         [this](qint64 seconds) { shown.push_back(seconds); });
    }
    void pass(std::chrono::milliseconds span)
    {
        runLoop.advance(span, [this](std::chrono::milliseconds step) { clock.advance(step); });
    }

    ManualClock clock;
    ManualRunLoop runLoop;
    PomodoroTimer timer{clock, runLoop};
    int expiries = 0;
    std::vector<qint64> shown;
};

}

TEST(TimerArithmetic, RemainderRoundsUpAndOverflowDown)
{
    const quint64 deadline = 5'000 * second;
    struct Case
    {
        quint64 now;
        bool allowsOverflow;
        qint64 expected;
    };
    const Case cases[] = {
        {deadline - 1'200'000'000, false, 2},
        {deadline - 200'000'000, false, 1},
        {deadline - 1, true, 1},
        {deadline - second, true, 1},
        {deadline, false, 0},
        {deadline, true, 0},
        {deadline + 90'700'000'000, true, -90},
        {deadline + 90'700'000'000, false, 0},
    };
    for (const Case &item : cases)
        EXPECT_EQ(signedRemainder(item.now, deadline, item.allowsOverflow), item.expected) << item.now;
    EXPECT_EQ(activeSeconds(10 * second, 20 * second - 1, 0), 9);
    EXPECT_EQ(activeSeconds(10 * second, 20 * second, 11 * second), 0);
    EXPECT_EQ(activeSeconds(10 * second, 9 * second, 0), 0);
}

TEST(TimerArithmeticDeathTest, WhatNoInstantHoldsIsFatal)
{
    EXPECT_DEATH((void)deadlineAfter(1, std::numeric_limits<qint64>::max()), "Arithmetic overflow");
    EXPECT_DEATH((void)deadlineAfter(second, -2), "Arithmetic overflow");
}

TEST_F(PomodoroTimerTest, CountsDownOnceASecondAndExpiresOnce)
{
    timer.start(3, false);
    pass(2900ms);
    EXPECT_EQ(timer.remainingSeconds(), 1);
    EXPECT_EQ(expiries, 0);
    pass(5s);
    EXPECT_EQ(shown, (std::vector<qint64>{3, 2, 1, 0}));
    EXPECT_EQ(expiries, 1);
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(runLoop.activeTimers(), 0U);
}

TEST_F(PomodoroTimerTest, PauseFreezesForAnyTimeAlsoOverflow)
{
    timer.start(60, true);
    pass(23s);
    timer.pause();
    pass(1h);
    EXPECT_EQ(timer.remainingSeconds(), 37);
    timer.resume();
    pass(52s);
    EXPECT_EQ(timer.overflowSeconds(), 15);
    EXPECT_EQ(expiries, 1);
    timer.pause();
    pass(1h);
    timer.resume();
    EXPECT_EQ(timer.overflowSeconds(), 15);
    pass(3s);
    EXPECT_EQ(timer.overflowSeconds(), 18);
    EXPECT_EQ(timer.remainingSeconds(), 0);
    EXPECT_EQ(expiries, 1);
}
