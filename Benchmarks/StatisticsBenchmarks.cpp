#include "FigureQueries.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Statistics/StatsCSVExporter.h"
#include "Statistics/StatsReport.h"
#include "Suites.h"

#include <QtCore/QProcess>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

constexpr qint64 goal = 8;
constexpr qint64 heatmapWeeks = 16;
constexpr qint64 monthDays = 30;
constexpr qint64 tenths = 10;

const std::string cachedBudget = "at most 1 ms";

Date daysAgo(qint64 days)
{
    return PhaseHistory::calendar().startOfDay(PhaseHistory::calendar().dayOf(PhaseHistory::now()).addDays(-days));
}

/// The first statistics of a start: nothing is cached yet.
void registerFirstStatistics(Workshop &workshop)
{
    registerBesideShell(
        workshop, "first statistics, all figures of all time", "at most 2 × `sqlite3`",
        [](OpenHistory &open) {
            const StatsAggregator fresh(open.repository, open.clock);
            benchmark::DoNotOptimize(gatherStatsReport(fresh, StatsRange::allTime, goal));
        },
        [](OpenHistory &) { return std::string(figureQueries::stamps); });

    const auto bare = [&workshop](benchmark::State &state) {
        const PhaseHistory history = workshop.history(state.range(0));
        const SQLite::Database database(history.storePath().toStdString());
        for (auto _ : state) {
            std::vector<CompletedWorkStamp> stamps;
            SQLite::Statement statement(database, figureQueries::stamps);
            while (statement.executeStep())
                stamps.push_back({dateFromSeconds(statement.getColumn(0)), statement.getColumn(1).getInt64()});
            benchmark::DoNotOptimize(stamps.data());
        }
    };
    for (const qint64 size : historySizes)
        benchmark::RegisterBenchmark("(the same rows through SQLite's interface)", bare)->Arg(size);
}

/// One figure that the caches answer.
template<typename Figure, typename Sql>
void addFigure(Workshop &workshop, const std::string &name, Figure figure, Sql sql)
{
    registerBesideShell(
        workshop, "cached: " + name, cachedBudget,
        [figure](OpenHistory &open) { benchmark::DoNotOptimize(figure(open.aggregator)); },
        [sql](OpenHistory &open) { return sql(open.aggregator); });
}

void registerCounts(Workshop &workshop)
{
    const auto countOf = [](StatsRange range) {
        return [range](const StatsAggregator &stats) { return figureQueries::count(stats.interval(range)); };
    };
    addFigure(
        workshop, "today", [](const auto &stats) { return stats.todayCount(); }, countOf(StatsRange::today));
    addFigure(
        workshop, "this week", [](const auto &stats) { return stats.completedThisWeek(); }, countOf(StatsRange::week));
    addFigure(
        workshop, "this month", [](const auto &stats) { return stats.completedThisMonth(); },
        countOf(StatsRange::month));
    addFigure(
        workshop, "completed work of all time",
        [](const auto &stats) { return stats.completedWorkCount(stats.interval(StatsRange::allTime)); },
        countOf(StatsRange::allTime));
    addFigure(
        workshop, "focus minutes of all time",
        [](const auto &stats) { return stats.focusMinutes(stats.interval(StatsRange::allTime)); },
        [](const auto &stats) { return figureQueries::minutes(stats.interval(StatsRange::allTime)); });
    addFigure(
        workshop, "daily average of 30 days", [](const auto &stats) { return stats.dailyAverage(monthDays, tenths); },
        [](const auto &stats) {
            return figureQueries::count({daysAgo(monthDays - 1), stats.interval(StatsRange::today).end});
        });
    addFigure(
        workshop, "current streak", [](const auto &stats) { return stats.currentStreak(); },
        [](const auto &) { return figureQueries::lastRun(); });
    addFigure(
        workshop, "best streak", [](const auto &stats) { return stats.bestStreak(); },
        [](const auto &) { return figureQueries::longestRun(); });
}

void registerCharts(Workshop &workshop)
{
    addFigure(
        workshop, "days of 30 days", [](const auto &stats) { return stats.dailyStats(monthDays - 1); },
        [](const auto &) { return figureQueries::days(daysAgo(monthDays - 1)); });
    addFigure(
        workshop, "days of all time",
        [](const auto &stats) { return stats.dailyStats(stats.dayCount(StatsRange::allTime) - 1); },
        [](const auto &) { return figureQueries::days(dateFromSeconds(0)); });
    const auto buckets = [](StatsRange range) {
        return [range](const StatsAggregator &stats) {
            const StatsChartLayout layout = stats.chartLayout(range);
            return stats.focusBuckets(layout.start, layout.bucketUnit);
        };
    };
    addFigure(workshop, "focus chart of 30 days", buckets(StatsRange::month),
              [](const auto &) { return figureQueries::buckets(daysAgo(monthDays - 1), "%Y-%m-%d"); });
    addFigure(workshop, "focus chart of all time", buckets(StatsRange::allTime), [](const StatsAggregator &stats) {
        const bool isYears = stats.chartLayout(StatsRange::allTime).bucketUnit == CalendarUnit::year;
        return figureQueries::buckets(dateFromSeconds(0), isYears ? "%Y" : "%Y-%m-%d");
    });
    addFigure(
        workshop, "heat map of 16 weeks", [](const auto &stats) { return stats.weeklyHeatmap(heatmapWeeks); },
        [](const auto &) { return figureQueries::days(daysAgo(heatmapWeeks * 7 - 1)); });
    addFigure(
        workshop, "log of today", [](const auto &stats) { return stats.sessionLog(stats.interval(StatsRange::today)); },
        [](const auto &stats) {
            const DateInterval today = stats.interval(StatsRange::today);
            return figureQueries::filled(sessionQueries::inInterval, {figureQueries::literal(today.start),
                                                                      figureQueries::literal(today.end), "-1"});
        });
    addFigure(
        workshop, "days in all time", [](const auto &stats) { return stats.dayCount(StatsRange::allTime); },
        [](const auto &) { return std::string(sessionQueries::earliestStart); });
}

void registerExport(Workshop &workshop)
{
    registerBesideShell(
        workshop, "CSV of all time", "at most 2 × `sqlite3`",
        [](OpenHistory &open) {
            const auto written = exportRange(open.aggregator, StatsRange::allTime, QProcess::nullDevice());
            benchmark::DoNotOptimize(written);
        },
        [](OpenHistory &) { return figureQueries::csv(); });
}

}

void registerStatisticsBenchmarks(Workshop &workshop)
{
    registerExport(workshop);
    registerFirstStatistics(workshop);
    registerCounts(workshop);
    registerCharts(workshop);
}

}
