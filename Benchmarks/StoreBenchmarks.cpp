#include "FigureQueries.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Suites.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

using figureQueries::filled;
using figureQueries::literal;

constexpr int pageOfLog = 100;

PomodoroSessionInsertRequest request()
{
    return {.id = QUuid::createUuid(),
            .phase = PomodoroPhase::working,
            .startedAt = PhaseHistory::now(),
            .endedAt = PhaseHistory::now() + Seconds{1500},
            .plannedDurationSeconds = 1500,
            .actualDurationSeconds = 1500,
            .cycleIndex = 1,
            .wasCompleted = true,
            .wasSkipped = false};
}

DateInterval everything()
{
    return {dateFromSeconds(0), PhaseHistory::now() + Seconds{86'400}};
}

Date monthsAgo()
{
    return PhaseHistory::now() - Seconds{30.0 * 86'400};
}

std::string inInterval(const DateInterval &interval, int limit)
{
    return filled(sessionQueries::inInterval, {literal(interval.start), literal(interval.end), std::to_string(limit)});
}

void registerInserts(Workshop &workshop)
{
    const auto run = [&workshop](benchmark::State &state) {
        OpenHistory &open = workshop.open(state.range(0));
        Yardstick::report(state, "", "one durable commit", Yardstick::durableCommit(open.history));
        for (auto _ : state)
            open.repository.insert(request(), InsertMode::synchronous);
        open.stack.save();
        open.history.restore();
    };
    for (const qint64 size : historySizes)
        benchmark::RegisterBenchmark("insert with its fsync", run)->Arg(size)->UseRealTime();
}

void registerIntervals(Workshop &workshop)
{
    const auto add = [&workshop](const std::string &what, StatsRange range) {
        registerBesideShell(
            workshop, "query: phases of " + what, "",
            [range](OpenHistory &open) {
                benchmark::DoNotOptimize(open.repository.sessions(open.aggregator.interval(range)));
            },
            [range](OpenHistory &open) { return inInterval(open.aggregator.interval(range), -1); });
    };
    add("today", StatsRange::today);
    add("the month", StatsRange::month);
    registerBesideShell(
        workshop, "query: work phases of the month", "",
        [](OpenHistory &open) {
            benchmark::DoNotOptimize(
                open.repository.sessions(open.aggregator.interval(StatsRange::month), PomodoroPhase::working));
        },
        [](OpenHistory &open) {
            const DateInterval month = open.aggregator.interval(StatsRange::month);
            return filled(sessionQueries::inIntervalOfPhase,
                          {literal(month.start), literal(month.end), "-1", "'work'"});
        });
    registerBesideShell(
        workshop, "query: the newest 100 phases", "",
        [](OpenHistory &open) {
            benchmark::DoNotOptimize(open.repository.sessions(everything(), std::nullopt, pageOfLog));
        },
        [](OpenHistory &) { return inInterval(everything(), pageOfLog); });
    registerBesideShell(
        workshop, "query: each phase in turn", "",
        [](OpenHistory &open) {
            qint64 seconds = 0;
            const bool whole = open.repository.forEachSession(
                everything(), [&seconds](const PomodoroSessionRecord &row) { seconds += row.actualDurationSeconds; });
            benchmark::DoNotOptimize(whole);
            benchmark::DoNotOptimize(seconds);
        },
        [](OpenHistory &) { return inInterval(everything(), -1); });
}

void registerWholeReads(Workshop &workshop)
{
    registerBesideShell(
        workshop, "query: completed work stamps", "",
        [](OpenHistory &open) { benchmark::DoNotOptimize(open.repository.completedWorkStamps()); },
        [](OpenHistory &) { return std::string(figureQueries::stamps); });
    registerBesideShell(
        workshop, "query: completed work count", "",
        [](OpenHistory &open) { benchmark::DoNotOptimize(open.repository.completedWorkCount()); },
        [](OpenHistory &) { return std::string(sessionQueries::completedWorkCount); });
    registerBesideShell(
        workshop, "query: completed work of 30 days", "",
        [](OpenHistory &open) { benchmark::DoNotOptimize(open.repository.completedWork(monthsAgo())); },
        [](OpenHistory &) { return filled(sessionQueries::completedWorkSince, {literal(monthsAgo())}); });
    registerBesideShell(
        workshop, "query: earliest start", "",
        [](OpenHistory &open) { benchmark::DoNotOptimize(open.repository.earliestSessionDate()); },
        [](OpenHistory &) { return std::string(sessionQueries::earliestStart); });
    registerBesideShell(
        workshop, "query: all phases", "",
        [](OpenHistory &open) { benchmark::DoNotOptimize(open.repository.allSessions()); },
        [](OpenHistory &) { return std::string(sessionQueries::all); });
}

void registerPrune(Workshop &workshop)
{
    // As at every start: a century back, where there is nothing.
    const auto run = [&workshop](benchmark::State &state) {
        OpenHistory &open = workshop.open(state.range(0));
        const std::string sql = filled(sessionQueries::prune, {literal(dateFromSeconds(-1e9))});
        Yardstick::report(state, "", "`sqlite3`", workshop.yardstick().shell(open.history, sql));
        for (auto _ : state) {
            open.repository.prune(36'500);
            open.stack.save();
        }
    };
    for (const qint64 size : historySizes)
        benchmark::RegisterBenchmark("prune that finds nothing", run)->Arg(size)->UseRealTime();
}

}

void registerStoreBenchmarks(Workshop &workshop)
{
    registerInserts(workshop);
    registerIntervals(workshop);
    registerWholeReads(workshop);
    registerPrune(workshop);
}

}
