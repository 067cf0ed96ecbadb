#include "Fakes/CapturedLog.h"
#include "Fakes/EngineFixture.h"
#include "Fakes/FakeWidgetCenter.h"
#include "Unit/Statistics/ManualSessionHistory.h"
#include "Widget/SharedJSON.h"
#include "Widget/WidgetBridge.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

namespace {

using namespace std::chrono_literals;
using namespace tomcatto;

struct WidgetBridgeTest : EngineFixture, testing::Test
{
    /// The snapshot on disk, which has to be a sound one.
    [[nodiscard]] WidgetSnapshot written() const
    {
        const auto snapshot = WidgetSnapshotFile(path).read();
        EXPECT_TRUE(snapshot) << snapshot.error().toStdString();
        return snapshot.value_or(WidgetSnapshot{});
    }
    void settle() { pass(250ms); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("group/widget-snapshot.json"));
    ManualSessionHistory history;
    StatsAggregator aggregator{history, wallClock};
    FakeWidgetCenter center;
    WidgetBridge bridge{machine, timer, settings, aggregator, {wallClock, runLoop, center, path}};
};

TEST_F(WidgetBridgeTest, WritesTheFieldsInTheirOrderAndLeavesOutWhatIsAbsent)
{
    wallClock.setNow(toDate(QDateTime(QDate(2025, 3, 4), QTime(8, 15), Qt::UTC)));
    history.stamps = {{toDate(QDateTime(QDate(2025, 3, 4), QTime(7, 0), Qt::UTC)), 1500}};
    bridge.start();
    settle();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray idle = R"({"phase":"idle","isPaused":false,"isOverflowing":false,"isPending":false,)"
                            R"("staticSeconds":1500,"nextPhase":"work","cycleIndex":0,"cyclesPerSet":4,)"
                            R"("todayCompleted":1,"todayFocusMinutes":25,"dailyGoal":8,"streak":1,)"
                            R"("validUntil":"2025-03-05T00:00:00Z"})";
    EXPECT_EQ(file.readAll(), idle);

    machine.start();
    settle();
    WidgetSnapshot running = written();
    EXPECT_EQ(toIso8601(running.phaseEndsAt.value()), QStringLiteral("2025-03-04T08:40:00Z"));
    EXPECT_EQ(SharedJSON::decode(SharedJSON::encode(running)), running);
    running.overflowStartedAt = running.validUntil;
    EXPECT_TRUE(SharedJSON::encode(running).contains(
        R"("phaseEndsAt":"2025-03-04T08:40:00Z","overflowStartedAt":"2025-03-05T00:00:00Z","staticSeconds":1500)"));
}

TEST_F(WidgetBridgeTest, SaysWhatCountsInEachState)
{
    settings.setOverflowEnabled(true);
    settings.setAutoStartBreaks(false);
    bridge.start();
    machine.start();
    pass(60s);
    settle();
    EXPECT_EQ(written().phase, WidgetPhase::work);
    EXPECT_EQ(written().staticSeconds, 1440);
    EXPECT_TRUE(written().phaseEndsAt);

    // The start, and after it nothing that a widget does not count by itself.
    EXPECT_GE(center.reloads, 60);
    EXPECT_EQ(center.changes, 1);

    machine.pause();
    settle();
    EXPECT_EQ(center.changes, 2);
    EXPECT_TRUE(written().isPaused);
    EXPECT_FALSE(written().phaseEndsAt);
    EXPECT_EQ(written().staticSeconds, 1440);

    machine.resume();
    pass(1440s + 10s);
    settle();
    const WidgetSnapshot overtime = written();
    EXPECT_TRUE(overtime.isOverflowing);
    EXPECT_FALSE(overtime.phaseEndsAt);
    EXPECT_EQ(overtime.staticSeconds, 10);
    EXPECT_NEAR(secondsSince1970(wallClock.now()) - secondsSince1970(overtime.overflowStartedAt.value()), 10.0, 1.5);

    settings.setOverflowEnabled(false);
    machine.reset();
    machine.start();
    pass(1500s);
    settle();
    const WidgetSnapshot pending = written();
    EXPECT_TRUE(pending.isPending);
    EXPECT_FALSE(pending.phaseEndsAt);
    EXPECT_EQ(pending.phase, WidgetPhase::shortBreak);
    EXPECT_EQ(pending.staticSeconds, 300);
}

TEST_F(WidgetBridgeTest, KnowsWhatComesNext)
{
    EXPECT_EQ(nextPhase(PomodoroPhase::working, 2, 4), WidgetPhase::shortBreak);
    EXPECT_EQ(nextPhase(PomodoroPhase::working, 3, 4), WidgetPhase::longBreak);
    EXPECT_EQ(nextPhase(PomodoroPhase::working, 0, 0), WidgetPhase::longBreak);
    EXPECT_EQ(nextPhase(PomodoroPhase::longBreak, 3, 4), WidgetPhase::work);
}

TEST_F(WidgetBridgeTest, WritesOnceForManyChangesAndNeverStarves)
{
    bridge.start();
    settle();
    ASSERT_EQ(center.reloads, 1);
    for (int goal = 1; goal <= 3; ++goal)
        settings.setDailyGoalPomodoros(goal);
    settle();
    EXPECT_EQ(center.reloads, 2);

    for (int goal = 0; goal < 50; ++goal) {
        settings.setDailyGoalPomodoros(100 + goal);
        pass(100ms);
    }
    EXPECT_GE(center.reloads, 2 + 4);
    EXPECT_LE(center.reloads, 2 + 6);
}

TEST_F(WidgetBridgeTest, FollowsTheHistoryAndTheDay)
{
    history.stamps = {{wallClock.now(), 1500}};
    bridge.start();
    settle();
    ASSERT_EQ(written().todayCompleted, 1);
    history.stamps.push_back({wallClock.now(), 1500});
    history.announceSave();
    settle();
    EXPECT_EQ(written().todayCompleted, 2);

    const Date validUntil = written().validUntil;
    wallClock.setNow(validUntil);
    wallClock.announceDay();
    settle();
    EXPECT_EQ(written().todayCompleted, 0);
    EXPECT_EQ(written().validUntil, validUntil + Seconds{86'400});
}

TEST_F(WidgetBridgeTest, KeepsTheEarlierFileWhereNoneCanBeWrittenAndTellsItOnce)
{
    bridge.start();
    settle();
    const WidgetSnapshot earlier = written();
    // In the way of the part that is written first.
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral(".part")));
    const CapturedLog log;
    for (int goal = 1; goal <= 2; ++goal) {
        settings.setDailyGoalPomodoros(goal);
        settle();
    }
    EXPECT_EQ(written(), earlier);
    EXPECT_EQ(center.reloads, 1);
    EXPECT_EQ(log.count(LogLevel::error), 1);

    ASSERT_TRUE(QDir().rmdir(path + QStringLiteral(".part")));
    bridge.writeFinalSnapshot();
    EXPECT_EQ(written().dailyGoal, 2);
}

TEST(WidgetSnapshotFileTest, NamesWhatIsWrongWithAFile)
{
    const QByteArray sound = SharedJSON::encode({});
    ASSERT_TRUE(SharedJSON::decode(sound));
    EXPECT_FALSE(SharedJSON::decode(sound.chopped(1)));
    QByteArray wrong = sound;
    EXPECT_THAT(SharedJSON::decode(wrong.replace(R"("streak":0)", R"("streak":"0")")).error().toStdString(),
                testing::HasSubstr("streak"));
    wrong = sound;
    EXPECT_THAT(SharedJSON::decode(wrong.replace("1970-01-01T", "tomorrow")).error().toStdString(),
                testing::HasSubstr("validUntil"));
}

}
