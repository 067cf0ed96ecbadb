#include "Fakes/EngineFixture.h"
#include "Fakes/RecordingWriter.h"
#include "Recording/PomodoroSession.h"

#include <gtest/gtest.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

class PomodoroSessionTest : public testing::Test, protected EngineFixture
{
protected:
    PomodoroSessionTest()
    {
        settings.setWorkDurationSeconds(100);
        settings.setShortBreakDurationSeconds(30);
    }
    [[nodiscard]] InFlightSessionMarker marker() const { return *store.load(); }

    RecordingWriter writer;
    InFlightSessionStore store{defaults};
    PomodoroSession session{machine, timer, settings, writer, store, {clock, wallClock, runLoop, identifiers}};
};

}

TEST_F(PomodoroSessionTest, RecordsEachWayToLeaveAPhase)
{
    struct Case
    {
        const char *name;
        std::function<void()> leave;
        bool hasOverflow;
        qint64 planned;
        qint64 actual;
        bool wasCompleted;
        bool wasSkipped;
    };
    const Case cases[] = {
        {"completed", [this] { pass(100s); }, false, 100, 100, true, false},
        {"skipped before its end",
         [this] {
             pass(90s);
             machine.skip();
         },
         false, 100, 90, false, true},
        {"reset",
         [this] {
             pass(10700ms);
             machine.reset();
         },
         false, 100, 10, false, false},
        {"skipped in overtime",
         [this] {
             pass(130s);
             machine.skip();
         },
         true, 100, 130, true, false},
        {"reset in overtime",
         [this] {
             pass(130s);
             machine.reset();
         },
         true, 100, 130, true, false},
        {"extended",
         [this] {
             pass(50s);
             machine.extend(300);
             pass(350s);
         },
         false, 400, 400, true, false},
        {"extended in overtime",
         [this] {
             pass(150s);
             machine.extend(300);
             machine.skip();
         },
         true, 450, 150, true, false},
        {"paused",
         [this] {
             pass(40s);
             machine.pause();
             pass(1h);
             machine.resume();
             pass(60s);
         },
         false, 100, 100, true, false},
        {"skipped while paused",
         [this] {
             pass(40s);
             machine.pause();
             pass(1h);
             machine.skip();
         },
         false, 100, 40, false, true},
    };
    for (const Case &item : cases) {
        SCOPED_TRACE(item.name);
        machine.reset();
        writer.requests.clear();
        settings.setOverflowEnabled(item.hasOverflow);
        machine.start();
        const Date started = wallClock.now();
        item.leave();
        ASSERT_GE(writer.requests.size(), 1U);
        const auto &record = writer.requests.front();
        EXPECT_EQ(record.phase, PomodoroPhase::working);
        EXPECT_EQ(record.startedAt, started);
        EXPECT_EQ(record.plannedDurationSeconds, item.planned);
        EXPECT_EQ(record.actualDurationSeconds, item.actual);
        EXPECT_EQ(record.wasCompleted, item.wasCompleted);
        EXPECT_EQ(record.wasSkipped, item.wasSkipped);
    }
}

TEST_F(PomodoroSessionTest, WaitingIsNeverActiveTime)
{
    settings.setAutoStartBreaks(false);
    machine.start();
    pass(100s);
    EXPECT_EQ(marker().phase, QStringLiteral("shortBreak"));
    EXPECT_EQ(marker().pausedAt, marker().startedAt);
    pass(1h);
    machine.takeBreak();
    EXPECT_EQ(marker().pausedSeconds, 3600);
    EXPECT_FALSE(marker().pausedAt);
    pass(30s);
    EXPECT_EQ(writer.requests.back().actualDurationSeconds, 30);
}

TEST_F(PomodoroSessionTest, SlowObserversTakeNothingFromAPhase)
{
    // Views draw between the start of the timer and the recorder's turn.
    const auto drawing = QObject::connect(&timer, &PomodoroTimer::remainingSecondsChanged, [this] { pass(40ms); });
    machine.start();
    QObject::disconnect(drawing);
    pass(100s - 40ms);
    ASSERT_EQ(writer.requests.size(), 1U);
    EXPECT_EQ(writer.requests.front().actualDurationSeconds, 100);
}

TEST_F(PomodoroSessionTest, MarkerFollowsThePhase)
{
    settings.setOverflowEnabled(true);
    settings.setWorkDurationSeconds(150);
    machine.start();
    EXPECT_FALSE(marker().lastActiveAt);
    pass(60s);
    EXPECT_EQ(marker().lastActiveAt, wallClock.now());
    machine.pause();
    const InFlightSessionMarker paused = marker();
    EXPECT_EQ(paused.pausedAt, wallClock.now());
    pass(10min);
    EXPECT_EQ(marker(), paused) << "no heartbeat while paused";
    machine.resume();
    EXPECT_EQ(marker().lastActiveAt, wallClock.now());
    pass(90s);
    EXPECT_EQ(marker().reachedPlanAt, wallClock.now());
    pass(20s);
    machine.extend(300);
    EXPECT_EQ(marker().plannedDurationSeconds, 470);
    EXPECT_TRUE(marker().reachedPlanAt);
    machine.reset();
    EXPECT_FALSE(store.load());
}

TEST_F(PomodoroSessionTest, TerminationRecordsBeforeItReturns)
{
    session.recordTermination();
    EXPECT_TRUE(writer.requests.empty()) << "nothing ran";
    machine.start();
    pass(10s);
    session.recordTermination();
    ASSERT_EQ(writer.requests.size(), 1U);
    EXPECT_EQ(writer.lastMode, InsertMode::synchronous);
    EXPECT_FALSE(writer.requests.front().wasCompleted || writer.requests.front().wasSkipped);
    EXPECT_FALSE(store.load());
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::idle);
}

TEST_F(PomodoroSessionTest, RecoversALeftMarkerOnce)
{
    machine.start();
    pass(61s);
    const DefaultsValue left = *defaults.value(QStringLiteral("inFlightSession"));
    machine.reset();
    writer.requests.clear();
    defaults.setValue(QStringLiteral("inFlightSession"), left);
    session.recover();
    session.recover();
    ASSERT_EQ(writer.requests.size(), 1U);
    EXPECT_EQ(writer.requests.front().actualDurationSeconds, 60);
    EXPECT_GT(defaults.synchronizations, 0) << "the marker is gone from the disk first";
}

using PomodoroSessionDeathTest = PomodoroSessionTest;

TEST_F(PomodoroSessionDeathTest, AFatalMarkerIsGoneFromTheDiskBeforeItIsFatal)
{
    machine.start();
    InFlightSessionMarker fatal = marker();
    fatal.cycleIndex = 40'000;
    store.save(fatal);
    defaults.onSynchronize = [this] { std::cerr << (store.load() ? "kept, " : "cleared, "); };
    EXPECT_DEATH(session.recover(), "^cleared, .*does not fit");
}

TEST_F(PomodoroSessionTest, AMarkerStaysUntilItsRecordIsWritten)
{
    writer.isSlow = true;
    machine.start();
    machine.skip();
    machine.pause();
    machine.skip();
    EXPECT_EQ(marker().phase, QStringLiteral("work")) << "a crash now must not lose the first phase";
    writer.waiting.at(0)();
    EXPECT_EQ(marker().cycleIndex, 0) << "nor the second";
    writer.waiting.at(1)();
    EXPECT_EQ(marker().cycleIndex, 1);
    EXPECT_FALSE(marker().pausedAt);

    machine.reset();
    EXPECT_TRUE(store.load());
    machine.start();
    session.recordTermination();
    EXPECT_FALSE(store.load()) << "the last record follows all others";
    machine.start();
    machine.reset();
    session.recordTermination();
    EXPECT_FALSE(store.load()) << "also where nothing runs any more";
}
