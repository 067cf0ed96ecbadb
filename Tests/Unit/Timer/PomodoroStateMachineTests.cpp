#include "Fakes/EngineFixture.h"

#include <gtest/gtest.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

class PomodoroStateMachineTest : public testing::Test, protected EngineFixture
{
protected:
    [[nodiscard]] std::string sequence() const
    {
        QStringList steps;
        for (const PhaseTransition &transition : transitions)
            steps << rawValue(transition.current) + QString::number(transition.cycleIndex);
        return steps.join(QLatin1Char(' ')).toStdString();
    }
};

}

TEST_F(PomodoroStateMachineTest, WalksTheSetByItself)
{
    settings.setWorkDurationSeconds(5);
    settings.setShortBreakDurationSeconds(3);
    settings.setLongBreakDurationSeconds(4);
    machine.start();
    pass(36s);
    EXPECT_EQ(sequence(), "work0 shortBreak0 work1 shortBreak1 work2 shortBreak2 work3 longBreak3 work0");
    EXPECT_EQ(transitions.back().previousPlannedSeconds, 4);
    EXPECT_TRUE(transitions.back().previousReachedPlan);
    EXPECT_EQ(transitions.front().reason, PhaseExitReason::started);
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::completed);
}

TEST_F(PomodoroStateMachineTest, SkippingFollowsTheSameSequence)
{
    settings.setCyclesBeforeLongBreak(2);
    settings.setAutoStartBreaks(false);
    settings.setAutoStartFocus(false);
    machine.start();
    for (int count = 0; count < 4; ++count)
        EXPECT_TRUE(machine.skip());
    EXPECT_EQ(sequence(), "work0 shortBreak0 work1 longBreak1 work0");
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::skipped);
    EXPECT_FALSE(transitions.back().previousReachedPlan);
    EXPECT_FALSE(machine.isPaused()) << "only a completion holds";
}

TEST_F(PomodoroStateMachineTest, CompletionHoldsWhatDoesNotStartByItself)
{
    settings.setAutoStartBreaks(false);
    settings.setAutoStartFocus(false);
    settings.setWorkDurationSeconds(5);
    settings.setShortBreakDurationSeconds(3);
    machine.start();
    pass(10s);
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::shortBreak);
    EXPECT_TRUE(machine.isPhasePending() && machine.isPaused());
    EXPECT_EQ(timer.remainingSeconds(), 3);
    const QString token = machine.phaseToken();
    EXPECT_TRUE(machine.extend(300));
    EXPECT_EQ(machine.phaseToken(), token) << "a waiting phase keeps its token";
    EXPECT_TRUE(machine.takeBreak());
    EXPECT_FALSE(machine.isPhasePending() || machine.isPaused());
    EXPECT_FALSE(machine.takeBreak());
    pass(303s);
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::working);
    EXPECT_TRUE(machine.isPhasePending());
    EXPECT_FALSE(machine.takeBreak() || machine.start()) << "work that does not overflow";
    EXPECT_TRUE(machine.resume());
    settings.setAutoStartBreaks(true);
    settings.setOverflowEnabled(true);
    pass(5s);
    EXPECT_TRUE(machine.isPhasePending()) << "with overtime on no break starts by itself";
}

TEST_F(PomodoroStateMachineTest, OverflowRunsOnAndTakesTheBreakAtOnce)
{
    settings.setOverflowEnabled(true);
    settings.setWorkDurationSeconds(10);
    machine.start();
    pass(30s);
    EXPECT_TRUE(machine.isOverflowing());
    EXPECT_EQ(overflows, 1);
    EXPECT_EQ(timer.overflowSeconds(), 20);
    EXPECT_TRUE(machine.skip()) << "skipping overtime completes it";
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::completed);
    EXPECT_TRUE(transitions.back().previousReachedPlan);
    EXPECT_FALSE(machine.isPhasePending());
    pass(400s);
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::working) << "breaks never overflow";
    EXPECT_FALSE(machine.isPhasePending()) << "focus starts by itself also with overflow on";
}

TEST_F(PomodoroStateMachineTest, CeilingPausesOnceUntilExtended)
{
    settings.setOverflowEnabled(true);
    settings.setWorkDurationSeconds(10);
    machine.start();
    pass(10s + 3599s);
    EXPECT_EQ(ceilings, 0);
    pass(1s);
    EXPECT_EQ(ceilings, 1);
    EXPECT_TRUE(machine.isPaused() && machine.isOverflowing());
    machine.resume();
    pass(2h);
    EXPECT_EQ(ceilings, 1) << "it goes on until it is extended";
    EXPECT_EQ(timer.overflowSeconds(), 3600 + 7200);
    const QString token = machine.phaseToken();
    EXPECT_TRUE(machine.extend(300));
    EXPECT_NE(machine.phaseToken(), token);
    EXPECT_EQ(machine.currentPlannedSeconds(), 10 + 10'800 + 300);
    EXPECT_FALSE(machine.isOverflowing());
    pass(300s + 3600s);
    EXPECT_EQ(ceilings, 2);
    EXPECT_TRUE(machine.extend(300)) << "and this goes on at once";
    EXPECT_FALSE(machine.isPaused());
    EXPECT_EQ(timer.remainingSeconds(), 300);
    EXPECT_EQ(overflows, 2);
}

TEST_F(PomodoroStateMachineTest, AnEndThatPassedIsReachedBeforeItsTickAndEndsNothingElse)
{
    struct Case
    {
        const char *name;
        std::function<bool()> act;
        bool hasOverflow;
        const char *sequence;
        PhaseExitReason reason;
        bool isReached;
        int overflows;
        qint64 plan;
    };
    const auto skip = [this] { return machine.skip(); };
    const auto extend = [this] { return machine.extend(300); };
    const auto pause = [this] { return machine.pause(); };
    using enum PhaseExitReason;
    const Case cases[] = {
        {"skip", skip, false, "work0 shortBreak0", skipped, true, 0, 300},
        {"skip in overtime", skip, true, "work0 shortBreak0", completed, true, 0, 300},
        {"take break", [this] { return machine.takeBreak(); }, true, "work0 shortBreak0", completed, true, 0, 300},
        {"reset", [this] { return machine.reset(); }, false, "work0 idle0", reset, true, 0, 0},
        {"terminate", [this] { return machine.terminate(); }, true, "work0 idle0", terminated, true, 0, 0},
        {"pause", pause, false, "work0", started, false, 0, 5},
        {"pause in overtime", pause, true, "work0", started, false, 1, 5},
        {"extend", extend, false, "work0", started, false, 0, 305},
        {"extend in overtime", extend, true, "work0", started, false, 1, 305},
    };
    settings.setWorkDurationSeconds(5);
    for (const Case &item : cases) {
        for (const bool isHeardOfByTick : {false, true}) {
            SCOPED_TRACE(testing::Message() << item.name << ", in a handler of the tick: " << isHeardOfByTick);
            machine.reset();
            transitions.clear();
            overflows = 0;
            settings.setOverflowEnabled(item.hasOverflow);
            machine.start();
            const auto handler = QObject::connect(&timer, &PomodoroTimer::remainingSecondsChanged, [&](qint64 left) {
                if (isHeardOfByTick && left == 0)
                    item.act();
            });
            isHeardOfByTick ? pass(5s) : stall(5500ms);
            QObject::disconnect(handler);
            EXPECT_TRUE(isHeardOfByTick || item.act());
            pass(2s);
            EXPECT_EQ(sequence(), item.sequence);
            EXPECT_EQ(transitions.back().reason, item.reason);
            EXPECT_EQ(transitions.back().previousReachedPlan, item.isReached);
            EXPECT_EQ(overflows, item.overflows);
            EXPECT_EQ(machine.currentPlannedSeconds(), item.plan);
        }
    }
}

TEST_F(PomodoroStateMachineTest, ExtendingFoldsTheOvertimeOfNow)
{
    settings.setOverflowEnabled(true);
    settings.setWorkDurationSeconds(10);
    machine.start();
    pass(20s);
    stall(90s);
    machine.extend(300);
    EXPECT_EQ(machine.currentPlannedSeconds(), 10 + 100 + 300);
    stall(400s);
    machine.extend(10);
    EXPECT_EQ(machine.currentPlannedSeconds(), 410 + 100 + 10) << "overtime that no tick has seen";
    EXPECT_EQ(overflows, 2);
    machine.extend(290);
    machine.pause();
    machine.extend(60);
    EXPECT_TRUE(machine.isPaused()) << "what the user paused stays paused";
    EXPECT_EQ(timer.remainingSeconds(), 360);
    machine.skip();
    EXPECT_TRUE(transitions.back().previousReachedPlan) << "the plan once reached stays reached";
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::skipped);
}

TEST_F(PomodoroStateMachineTest, NothingLeftCompletesOnResume)
{
    settings.setWorkDurationSeconds(10);
    machine.start();
    stall(11s);
    machine.pause();
    EXPECT_FALSE(machine.extend(300));
    EXPECT_EQ(machine.currentPlannedSeconds(), 10);
    machine.resume();
    EXPECT_EQ(sequence(), "work0 shortBreak0");
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::completed);
    EXPECT_TRUE(transitions.back().previousReachedPlan);
}

TEST_F(PomodoroStateMachineTest, ZeroPlanEndsInALaterTurnOrWhenResumed)
{
    settings.setWorkDurationSeconds(0);
    settings.setAutoStartFocus(false);
    settings.setShortBreakDurationSeconds(0);
    settings.setOverflowEnabled(false);
    machine.start();
    EXPECT_EQ(sequence(), "work0") << "not in the same turn";
    runLoop.drain();
    EXPECT_EQ(sequence(), "work0 shortBreak0 work1");
    EXPECT_TRUE(machine.isPhasePending());
    EXPECT_FALSE(machine.extend(300));
    machine.resume();
    runLoop.drain();
    EXPECT_EQ(sequence(), "work0 shortBreak0 work1 shortBreak1 work2");
    machine.reset();
    runLoop.drain();
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::idle);
    EXPECT_EQ(transitions.back().reason, PhaseExitReason::reset);
}

TEST_F(PomodoroStateMachineTest, StateIsWholeBeforeAnybodyHears)
{
    settings.setAutoStartBreaks(false);
    settings.setWorkDurationSeconds(5);
    machine.start();
    QStringList heard;
    const auto note = [&](const char *name) {
        heard << QString::fromLatin1(name);
        EXPECT_EQ(machine.currentPhase(), PomodoroPhase::shortBreak);
        EXPECT_TRUE(machine.isPhasePending());
        EXPECT_EQ(machine.currentPlannedSeconds(), 300);
    };
    QObject::connect(&machine, &PomodoroStateMachine::currentPhaseChanged, &machine, [&] { note("phase"); });
    QObject::connect(&machine, &PomodoroStateMachine::isPausedChanged, &machine, [&] { note("paused"); });
    QObject::connect(&machine, &PomodoroStateMachine::currentPlannedSecondsChanged, &machine, [&] { note("plan"); });
    QObject::connect(&machine, &PomodoroStateMachine::isPhasePendingChanged, &machine, [&] { note("pending"); });
    QObject::connect(&machine, &PomodoroStateMachine::transitioned, &machine, [&] { note("transition"); });
    QObject::connect(&timer, &PomodoroTimer::remainingSecondsChanged, &machine, [&](qint64 left) {
        if (left == 300)
            note("timer");
    });
    pass(5s);
    EXPECT_EQ(heard.join(QLatin1Char(' ')).toStdString(), "timer phase paused plan pending transition");
}

TEST_F(PomodoroStateMachineTest, OperationsFromHandlersRunAfterwards)
{
    QObject::connect(&machine, &PomodoroStateMachine::currentPhaseChanged, &machine, [this](PomodoroPhase phase) {
        if (phase == PomodoroPhase::working && transitions.empty()) {
            EXPECT_TRUE(machine.skip());
            // A handler that waits, as for a dialog, lets the phase expire that is as good as skipped.
            pass(1501s);
        }
    });
    machine.start();
    EXPECT_EQ(sequence(), "work0 shortBreak0");
    EXPECT_EQ(transitions.front().current, PomodoroPhase::working) << "events keep their order";
}

using PomodoroStateMachineDeathTest = PomodoroStateMachineTest;

TEST_F(PomodoroStateMachineDeathTest, ZeroCyclesAreFatalOnlyWhenWorkIsLeft)
{
    machine.start();
    machine.skip();
    settings.setCyclesBeforeLongBreak(0);
    machine.skip();
    EXPECT_EQ(machine.currentCycleIndex(), 0);
    EXPECT_DEATH(machine.skip(), "cyclesBeforeLongBreak is 0");
}
