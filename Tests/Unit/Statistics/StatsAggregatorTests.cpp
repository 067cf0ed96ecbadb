#include "Fakes/ManualWallClock.h"
#include "ManualSessionHistory.h"
#include "Statistics/StatsAggregator.h"

#include <gtest/gtest.h>
#include <limits>
#include <QtTest/QSignalSpy>

namespace tomcatto {
namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 smallest = std::numeric_limits<qint64>::min();

QDate day(const char *text)
{
    return QDate::fromString(QString::fromLatin1(text), Qt::ISODate);
}

Date utc(const char *text)
{
    return toDate(QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate));
}

/// The aggregator on a Wednesday in Berlin, 12 March 2025 at noon.
class StatsAggregatorTest : public testing::Test
{
protected:
    void add(const char *startedAt, qint64 seconds = 1500) { history.stamps.push_back({utc(startedAt), seconds}); }

    ManualSessionHistory history;
    ManualWallClock clock{utc("2025-03-12T11:00:00Z"), {QTimeZone("Europe/Berlin"), Qt::Monday}};
    StatsAggregator stats{history, clock};
};

TEST_F(StatsAggregatorTest, FollowsAStreakOverADateThatTheZoneLeftOut)
{
    // Samoa went from 29 to 31 December 2011.
    clock.setCalendar({QTimeZone("Pacific/Apia"), Qt::Monday});
    clock.setNow(utc("2011-12-31T08:00:00Z"));
    add("2011-12-29T09:00:00Z"); // 28 December
    add("2011-12-30T09:00:00Z"); // 29 December
    EXPECT_EQ(stats.currentStreak(), 2) << "yesterday was the 29th";
    add("2011-12-30T11:00:00Z"); // 31 December
    for (const bool isAdded : {true, false}) {
        isAdded ? history.announceAddition() : history.announceSave();
        EXPECT_EQ(stats.currentStreak(), 3);
        EXPECT_EQ(stats.bestStreak(), 3);
    }
}

TEST_F(StatsAggregatorTest, TakesAnyBoundsThatItIsAskedWith)
{
    EXPECT_EQ(stats.todayCount() + stats.bestStreak() + stats.dailyAverage(7, 10), 0);
    EXPECT_EQ(history.reads, 1) << "the empty list is kept as well";
    add("2025-03-10T08:00:00Z", 59);
    add("2025-03-12T08:00:00Z", 59);
    add("2025-03-12T09:00:00Z", 59);
    history.announceSave();
    for (const qint64 maxDays : {qint64{0}, qint64{-5}, largest})
        EXPECT_EQ(stats.currentStreak(maxDays), 0) << maxDays;
    for (const qint64 daysBack : {qint64{-1}, smallest, largest})
        EXPECT_TRUE(stats.dailyStats(daysBack).empty()) << daysBack;
    EXPECT_TRUE(stats.weeklyHeatmap(0).empty());
    EXPECT_EQ(stats.dailyAverage(3, 10), 10);
    EXPECT_EQ(stats.dailyAverage(3, -10), -10);
    EXPECT_EQ(stats.dailyAverage(0, 10), 20) << "never less than today";
    EXPECT_EQ(stats.focusMinutes({utc("2025-03-10T08:00:00Z"), utc("2025-03-12T08:00:00Z")}), 0);
    EXPECT_EQ(stats.focusMinutes({utc("2025-03-10T08:00:00Z"), utc("2025-03-12T08:00:01Z")}), 1);
    EXPECT_EQ(stats.focusMinutes({utc("2025-03-13T00:00:00Z"), utc("2025-03-01T00:00:00Z")}), 0);
    EXPECT_EQ(stats.focusBuckets(day("2030-01-01"), CalendarUnit::weekOfYear),
              (std::vector<FocusBucket>{{day("2025-03-10"), 2}}))
        << "a start to come counts as today";
}

TEST_F(StatsAggregatorTest, KeepsFiguresUntilTheHistoryIsSaved)
{
    static std::vector<QString> lines;
    lines.clear();
    setLogSink([](LogLevel level, const QString &category, const QString &message) {
        lines.push_back(QString::number(static_cast<int>(level)) + u' ' + category + u' ' + message);
    });
    QSignalSpy changed(&stats, &StatsAggregator::changes);
    add("2025-03-12T23:30:00Z"); // 13 March in Berlin, 12 March in New York
    EXPECT_EQ(stats.todayCount(), 0);
    add("2025-03-13T09:00:00Z");
    clock.setNow(utc("2025-03-13T10:00:00Z"));
    EXPECT_EQ(stats.todayCount(), 1) << "the day comes from the clock, the phases from the cache";
    clock.setCalendar({QTimeZone("America/New_York"), Qt::Sunday});
    EXPECT_EQ(stats.todayCount(), 0) << "days follow the time zone";
    EXPECT_EQ(history.reads, 1);
    history.announceSave();
    setLogSink({});
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(stats.todayCount(), 1);
    EXPECT_EQ(history.reads, 2);
    EXPECT_EQ(lines, std::vector{QStringLiteral("0 StatsAggregator Stats cache invalidated after Core Data save")});
    add("2025-03-13T09:30:00Z");
    EXPECT_EQ(stats.todayCount(), 1);
    history.announceAddition();
    EXPECT_EQ(stats.todayCount(), 2);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(history.reads, 2) << "an addition alone takes no second reading of everything";
}

TEST_F(StatsAggregatorTest, LeavesOutWhatHasNoDayOrPhase)
{
    history.stamps = {{dateFromSeconds(1e300), 60},
                      {utc("2025-03-12T10:00:00Z"), 60},
                      {dateFromSeconds(std::numeric_limits<double>::quiet_NaN()), 60},
                      {utc("2025-03-11T10:00:00Z"), 60}};
    EXPECT_EQ(stats.currentStreak(), 2) << "also out of order";
    EXPECT_EQ(stats.focusMinutes({utc("2000-01-01T00:00:00Z"), utc("2100-01-01T00:00:00Z")}), 2);
    for (const char *phase : {"work", "pause", "shortBreak", "idle", "", "longBreak"})
        history.records.emplace_back().phase = QString::fromLatin1(phase);
    history.records[2].actualDurationSeconds = 7;
    EXPECT_EQ(stats.sessions({}).size(), 6U);
    const std::vector<EndedPhase> log = stats.sessionLog({});
    ASSERT_EQ(log.size(), 3U);
    EXPECT_EQ(log[1].phase, PomodoroPhase::shortBreak);
    EXPECT_EQ(log[1].actualSeconds, 7);
}

TEST_F(StatsAggregatorTest, StopsWhereNumbersDoNotFit)
{
    testing::GTEST_FLAG(death_test_style) = "fast";
    EXPECT_DEATH(static_cast<void>(stats.weeklyHeatmap(largest / 7 + 1)), "overflow");
    add("2025-03-12T10:00:00Z", largest);
    add("2025-03-12T10:30:00Z", 1);
    EXPECT_DEATH(static_cast<void>(stats.focusMinutes({})), "overflow");
    EXPECT_DEATH(static_cast<void>(stats.dailyAverage(1, largest)), "overflow");
}

TEST(StatsRange, WidensTheBarsOfAllTime)
{
    constexpr CalendarUnit daily = CalendarUnit::day, weekly = CalendarUnit::weekOfYear;
    constexpr CalendarUnit monthly = CalendarUnit::month, yearly = CalendarUnit::year;
    const Calendar beirut{QTimeZone("Asia/Beirut"), Qt::Saturday};
    const Date now = utc("2024-03-30T22:30:00Z"); // 31 March there, a day that begins at 01:00
    const QDate today = day("2024-03-31");
    const struct
    {
        qint64 daysAgo;
        CalendarUnit bucket, stride;
    } cases[] = {{-5, daily, daily},  {0, daily, daily},      {13, daily, daily},       {14, daily, weekly},
                 {90, daily, weekly}, {91, monthly, monthly}, {1095, monthly, monthly}, {1096, yearly, yearly}};
    for (const auto &[daysAgo, bucket, stride] : cases) {
        const Date earliest = beirut.startOfDay(today.addDays(-daysAgo));
        const QDate start = today.addDays(-std::max<qint64>(daysAgo, 0));
        EXPECT_EQ(chartLayout(StatsRange::allTime, earliest, now, beirut), (StatsChartLayout{start, bucket, stride}))
            << daysAgo;
        EXPECT_EQ(dayCount(StatsRange::allTime, earliest, now, beirut), start.daysTo(today) + 1);
    }
    EXPECT_EQ(chartLayout(StatsRange::today, {}, now, beirut), chartLayout(StatsRange::allTime, {}, now, beirut));
    EXPECT_EQ(chartLayout(StatsRange::week, {}, now, beirut).start, day("2024-03-25"));
    EXPECT_EQ(chartLayout(StatsRange::month, {}, now, beirut), (StatsChartLayout{day("2024-03-02"), daily, weekly}));

    const Date earliest = utc("2020-01-01T12:34:56Z");
    EXPECT_EQ(interval(StatsRange::today, earliest, now, beirut),
              (DateInterval{utc("2024-03-30T22:00:00Z"), utc("2024-03-31T21:00:00Z")}));
    EXPECT_EQ(interval(StatsRange::week, earliest, now, beirut).start, utc("2024-03-29T22:00:00Z"));
    EXPECT_EQ(interval(StatsRange::month, earliest, now, beirut).start, utc("2024-02-29T22:00:00Z"));
    EXPECT_EQ(interval(StatsRange::allTime, earliest, now, beirut),
              (DateInterval{earliest, utc("2024-03-31T21:00:00Z")}));
    EXPECT_EQ(interval(StatsRange::allTime, utc("2024-04-02T00:00:00Z"), now, beirut),
              interval(StatsRange::today, {}, now, beirut));
}

}
}
