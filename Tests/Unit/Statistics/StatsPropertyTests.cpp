#include "Fakes/ManualWallClock.h"
#include "ManualSessionHistory.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "SlowFigures.h"
#include "Statistics/StatsAggregator.h"

#include <gtest/gtest.h>
#include <iostream>
#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>
#include <random>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {
namespace {

constexpr double secondsPerDay = 86'400;

/// Draws instants of 2015 to 2035 that crowd around changes of the clocks, year ends and midnights of the zone.
class InstantSource
{
public:
    explicit InstantSource(unsigned seed)
        : m_random(seed)
    {
        const SlowFigures::Day end = std::chrono::year(2036) / 1 / 1;
        for (SlowFigures::Day day = std::chrono::year(2015) / 1 / 1; day < end; day += std::chrono::days(1)) {
            const double start = SlowFigures::startOfDay(day);
            const double length = SlowFigures::startOfDay(day + std::chrono::days(1)) - start;
            if (length != secondsPerDay || std::chrono::year_month_day(day).day() == std::chrono::day(31))
                m_edges.push_back(start);
        }
    }

    int upTo(int bound) { return std::uniform_int_distribution(0, bound)(m_random); }
    double edge() { return m_edges[static_cast<std::size_t>(upTo(static_cast<int>(m_edges.size()) - 1))]; }
    /// At or around the start of the day of `instant`, or anywhere near.
    double near(double instant)
    {
        constexpr double steps[] = {0, -1, -0.001, 1, 1800, -1800, 3600, 3599, -3600, 7200, 5400, 43200};
        if (upTo(3) == 0)
            return instant + upTo(80'000) - 40'000;
        return SlowFigures::startOfDay(SlowFigures::dayOf(instant)) +
               steps[static_cast<std::size_t>(upTo(std::size(steps) - 1))];
    }

private:
    std::mt19937 m_random;
    std::vector<double> m_edges;
};

std::vector<CompletedWorkStamp> randomStamps(InstantSource &source, double now)
{
    std::vector<CompletedWorkStamp> stamps;
    const auto add = [&](double instant) { stamps.push_back({dateFromSeconds(instant), source.upTo(4000)}); };
    const int rareGaps = source.upTo(6) + 1;
    for (int daysAgo = -10; daysAgo < 130; ++daysAgo) {
        for (int phases = source.upTo(rareGaps) == 0 ? 0 : source.upTo(2) + 1; phases > 0; --phases)
            add(source.near(now - daysAgo * secondsPerDay));
    }
    for (int phases = source.upTo(30); phases > 0; --phases)
        add(source.near(source.edge()));
    std::ranges::sort(stamps, {}, &CompletedWorkStamp::startedAt);
    return stamps;
}

void compare(const StatsAggregator &stats, const SlowFigures &slow)
{
    EXPECT_EQ(stats.todayCount(), slow.sumIn('d', slow.counts));
    EXPECT_EQ(stats.completedThisWeek(), slow.sumIn('w', slow.counts));
    EXPECT_EQ(stats.completedThisMonth(), slow.sumIn('m', slow.counts));
    EXPECT_EQ(stats.completedWorkCount(stats.interval(StatsRange::month)), slow.sumIn('m', slow.counts));
    EXPECT_EQ(stats.focusMinutes(stats.interval(StatsRange::today)), slow.sumIn('d', slow.seconds) / 60);
    EXPECT_EQ(stats.focusMinutes(stats.interval(StatsRange::week)), slow.sumIn('w', slow.seconds) / 60);
    const qint64 run = slow.runEndingOn(slow.today - std::chrono::days(slow.counts.contains(slow.today) ? 0 : 1));
    EXPECT_EQ(stats.currentStreak(), run);
    EXPECT_EQ(stats.currentStreak(3), std::min<qint64>(run, 3));
    EXPECT_EQ(stats.bestStreak(), slow.bestStreak());
    qint64 sum = 0;
    for (const DailyStat &stat : slow.dailyStats(29))
        sum += stat.count;
    EXPECT_EQ(stats.dailyAverage(30, 10), sum * 10 / 30);
    EXPECT_EQ(stats.dailyStats(100), slow.dailyStats(100));
    EXPECT_EQ(stats.weeklyHeatmap(16), slow.heatmap(16));
    const SlowFigures::Day start = slow.today - std::chrono::days(800);
    for (const auto &[unit, letter] : {std::pair{CalendarUnit::day, 'd'},
                                       {CalendarUnit::weekOfYear, 'w'},
                                       {CalendarUnit::month, 'm'},
                                       {CalendarUnit::year, 'y'}})
        EXPECT_EQ(stats.focusBuckets(SlowFigures::date(start), unit), slow.buckets(start, letter)) << letter;
}

unsigned chosenSeed()
{
    const char *given = std::getenv("TOMCATTO_SEED");
    const unsigned seed = given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 20'250'301;
    std::cout << "seed " << seed << " (TOMCATTO_SEED)\n";
    return seed;
}

TEST(StatsProperties, AgreeWithPlainCountingInEveryZone)
{
    const unsigned seed = chosenSeed();
    for (const char *zone : {"America/Sao_Paulo", "Asia/Beirut", "Africa/Cairo", "Australia/Lord_Howe",
                             "Asia/Kathmandu", "America/New_York", "Europe/Berlin", "Pacific/Auckland", "Pacific/Apia",
                             "UTC", "America/Havana", "America/Santiago", "Asia/Tehran"}) {
        setenv("TZ", zone, 1);
        tzset();
        InstantSource source(seed);
        ManualSessionHistory history;
        ManualWallClock clock;
        const StatsAggregator stats(history, clock);
        for (int round = 0; round < 12 && !testing::Test::HasFailure(); ++round) {
            const Qt::DayOfWeek firstWeekday = std::array{Qt::Monday, Qt::Sunday, Qt::Saturday}[std::size_t(round % 3)];
            const double now = source.near(source.edge());
            SCOPED_TRACE(std::string(zone) + " first weekday " + std::to_string(firstWeekday) + " now " +
                         toIso8601(dateFromSeconds(now)).toStdString());
            clock.setNow(dateFromSeconds(now));
            clock.setCalendar({QTimeZone(zone), firstWeekday});
            history.stamps = randomStamps(source, now);
            history.announceSave();
            compare(stats, SlowFigures(history.stamps, now, firstWeekday));
        }
    }
}

/// A store that is written to, by the application and past it, while its figures are asked for.
struct ChangingStore
{
    explicit ChangingStore(unsigned seed)
        : source(seed)
    {
        clock.setNow(dateFromSeconds(source.near(source.edge())));
    }
    void insert(double offset)
    {
        const Date start = clock.now() + Seconds(offset);
        const auto phase = source.upTo(4) == 0 ? PomodoroPhase::shortBreak : PomodoroPhase::working;
        repository.insert({QUuid(), phase, start, start, 1500, source.upTo(4000), 0, source.upTo(4) > 0, false},
                          InsertMode::asynchronous);
    }
    void change()
    {
        const double now = secondsSince1970(clock.now());
        const int dice = source.upTo(99);
        if (dice < 80)
            insert(dice < 50 ? 0.001 * ++inserts : source.near(now) - now);
        else if (dice < 94)
            clock.advance(Seconds(source.upTo(200'000)));
        else if (dice < 97)
            repository.prune(source.upTo(40));
        else
            other.exec("DELETE FROM PomodoroSessionRecord WHERE rowid % 5 = 0");
        // Sometimes the figures are asked for between a save and its signal, sometimes before both.
        if (source.upTo(1) == 0)
            stack.save();
        if (source.upTo(2) == 0)
            static_cast<void>(stats.todayCount());
        if (source.upTo(2) == 0)
            QCoreApplication::processEvents();
    }
    void compareIn(const char *zone)
    {
        setenv("TZ", zone, 1);
        tzset();
        clock.setCalendar({QTimeZone(zone), Qt::Sunday});
        // What others wrote is noticed with the next save.
        insert(0);
        stack.save();
        QCoreApplication::processEvents();
        compare(stats, SlowFigures(repository.completedWorkStamps(), secondsSince1970(clock.now()), Qt::Sunday));
    }

    QTemporaryDir folder;
    InstantSource source;
    int inserts = 0;
    ManualWallClock clock;
    CoreDataStack stack{folder.path()};
    SessionRepository repository{stack, clock};
    StatsAggregator stats{repository, clock};
    SQLite::Database other{stack.storePath().toStdString(), SQLite::OPEN_READWRITE, 5000};
};

TEST(StatsProperties, StayThoseOfTheStoreThroughEveryKindOfChange)
{
    const unsigned seed = chosenSeed();
    for (unsigned run = 0; run < 3; ++run) {
        ChangingStore store(seed + run);
        for (int step = 1; step <= 240 && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("run " + std::to_string(run) + ", step " + std::to_string(step));
            store.change();
            if (step % 8 == 0)
                store.compareIn(step % 40 == 0 ? "Asia/Kathmandu" : "America/Havana");
        }
    }
}

}
}
