#include "Fakes/EngineFixture.h"
#include "Fakes/ManualPower.h"
#include "Power/SleepWakeCoordinator.h"
#include "Power/SleepWakePolicy.h"

#include <gtest/gtest.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

class SleepWakeCoordinatorTest : public testing::Test, protected EngineFixture
{
protected:
    SleepWakeCoordinatorTest() { coordinator.start(); }
    void sleepFor(std::chrono::seconds span)
    {
        power.sleep();
        stall(span);
        power.wake();
        runLoop.drain();
    }

    ManualPower power;
    SleepWakeObserver observer{power, clock};
    SleepWakeCoordinator coordinator{machine, timer, observer};
};

}

TEST(SleepWakePolicy, DecidesByPhaseAndLength)
{
    using enum PomodoroPhase;
    EXPECT_EQ(sleepWakePolicy(working, 1500, 59.9), WakeDecision::resume);
    EXPECT_EQ(sleepWakePolicy(working, 1500, 60), WakeDecision::stayPaused);
    EXPECT_EQ(sleepWakePolicy(shortBreak, 120, 120), WakeDecision::completeBreak);
    EXPECT_EQ(sleepWakePolicy(longBreak, 121, 120), WakeDecision::resume);
    EXPECT_EQ(sleepWakePolicy(shortBreak, 10, 59), WakeDecision::resume);
    EXPECT_EQ(sleepWakePolicy(idle, 0, 9999), WakeDecision::resume);
}

TEST_F(SleepWakeCoordinatorTest, WorkStaysPausedAfterALongSleep)
{
    machine.start();
    EXPECT_TRUE(power.isSleepDelayed);
    pass(100s);
    sleepFor(59s);
    EXPECT_FALSE(machine.isPaused());
    EXPECT_EQ(timer.remainingSeconds(), 1400);
    sleepFor(3h);
    EXPECT_TRUE(machine.isPaused());
    EXPECT_FALSE(power.isSleepDelayed);
    EXPECT_EQ(timer.remainingSeconds(), 1400);
}

TEST_F(SleepWakeCoordinatorTest, BreaksEndOrGoOn)
{
    machine.start();
    machine.skip();
    sleepFor(120s);
    EXPECT_EQ(timer.remainingSeconds(), 300);
    EXPECT_FALSE(machine.isPaused());
    settings.setAutoStartFocus(false);
    sleepFor(600s);
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::working);
    EXPECT_TRUE(machine.isPhasePending()) << "the next phase follows the rules of a completion";
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::completed);
}

TEST_F(SleepWakeCoordinatorTest, LeavesAloneWhatTheUserChanged)
{
    machine.start();
    machine.pause();
    sleepFor(10s);
    EXPECT_TRUE(machine.isPaused()) << "paused before the sleep";
    machine.resume();
    power.sleep();
    machine.reset();
    stall(10s);
    power.wake();
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::idle);
    power.wake();
    machine.start();
    power.sleep();
    machine.skip();
    stall(1h);
    power.wake();
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::skipped) << "another phase than the one that slept";
    EXPECT_FALSE(machine.isPaused());
    machine.skip();
    power.sleep();
    machine.resume();
    stall(100s);
    power.wake();
    EXPECT_FALSE(machine.isPaused());
}
