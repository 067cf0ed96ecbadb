#pragma once

#include <array>

namespace tomcatto {

/// The words of the exported file: its header and the labels of its columns. English in every language.
struct StatsCSVColumn
{
    static constexpr const char *header = "Type,Duration,Status,StartedAt";

    static constexpr const char *work = "Work";
    static constexpr const char *shortBreak = "Short Break";
    static constexpr const char *longBreak = "Long Break";
    /// Any other phase.
    static constexpr const char *unknown = "Unknown";

    static constexpr const char *completed = "Completed";
    static constexpr const char *skipped = "Skipped";
    static constexpr const char *interrupted = "Interrupted";

    /// In the order of `PomodoroPhase` and of `SessionEnding`.
    static constexpr std::array types{unknown, work, shortBreak, longBreak};
    static constexpr std::array endings{completed, skipped, interrupted};
};

}
