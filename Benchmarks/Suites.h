#pragma once

#include "OpenHistory.h"

#include <array>

namespace tomcatto {

/// How many phases the histories hold that a benchmark is repeated for.
inline constexpr std::array<qint64, 3> historySizes{1'000, 50'000, 1'000'000};

/// Each registers the benchmarks of one part of the program. The workshop outlives the run. A name ends with the number
/// of phases where the benchmark is repeated for each.
void registerEngineBenchmarks(Workshop &workshop);
void registerStoreBenchmarks(Workshop &workshop);
void registerStatisticsBenchmarks(Workshop &workshop);

/// Registers `work` for each size of history beside what `sql` gives the `sqlite3` shell to do on the same file.
/// Processor time of the calling thread counts.
template<typename Work, typename Sql>
void registerBesideShell(Workshop &workshop, const std::string &name, const std::string &budget, Work work, Sql sql)
{
    const auto run = [&workshop, budget, work, sql](benchmark::State &state) {
        OpenHistory &open = workshop.open(state.range(0));
        Yardstick::report(state, budget, "`sqlite3`", workshop.yardstick().shell(open.history, sql(open)));
        work(open);
        for (auto _ : state)
            work(open);
    };
    for (const qint64 size : historySizes)
        benchmark::RegisterBenchmark(name.c_str(), run)->Arg(size);
}

}
