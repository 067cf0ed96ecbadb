#pragma once

#include "PhaseHistory.h"

#include <benchmark/benchmark.h>
#include <map>
#include <string>

namespace tomcatto {

/// What the plainest program takes for the same on the same file, measured in the same run, in nanoseconds.
class Yardstick final
{
public:
    /// Processor time of the `sqlite3` shell for `sql`, its rows written to nowhere: the middle one of several runs
    /// after one that warms the caches; kept for the rest of the run. Ends the process where there is no shell, or the
    /// statement fails.
    [[nodiscard]] double shell(const PhaseHistory &history, const std::string &sql);
    /// Time of one insert committed to disk through SQLite's own interface: the mean of many, measured anew with
    /// each call, since disks have moods.
    [[nodiscard]] static double durableCommit(const PhaseHistory &history);

    /// Puts budget, name and value of a yardstick into the result of a benchmark. @param nanoseconds 0 for none
    static void report(benchmark::State &state, const std::string &budget, const std::string &name, double nanoseconds);

private:
    std::map<std::pair<qint64, std::string>, double> m_known;
};

}
