#pragma once

#include "CommandLine/CommandSurroundings.h"
#include "CommandLine/Invocation.h"
#include "Control/ControlMessage.h"

namespace tomcatto {

class StatsAggregator;

/// Carries out the commands that only read the history. They read the store in place, also beside a running
/// application; where there is none yet, none is made. Blocking.
class HistoryReports final
{
public:
    /// @param surroundings outlive the reports.
    explicit HistoryReports(const CommandSurroundings &surroundings)
        : m_surroundings(surroundings)
    {
    }

    /// The figures of a range.
    [[nodiscard]] ControlReply stats(const Invocation &invocation) const;
    /// The phases of a range, newest first, printed as they are read.
    [[nodiscard]] ControlReply list(const Invocation &invocation) const;
    /// Writes the phases of a range to a file or to standard output.
    [[nodiscard]] ControlReply exportSessions(const Invocation &invocation) const;

    /// Copies the history into a file.
    [[nodiscard]] ControlReply backUp(const Invocation &invocation) const;

    /// Whether there is certainly no store below an application-support directory.
    [[nodiscard]] static bool hasNoStore(const std::optional<QString> &applicationSupportDirectory);

private:
    /// Runs `report` on the history; one that cannot be read fails whatever the report says.
    [[nodiscard]] ControlReply onHistory(const std::function<ControlReply(const StatsAggregator &)> &report) const;
    [[nodiscard]] ControlReply exportToOutput(const StatsAggregator &aggregator, StatsRange range) const;

    const CommandSurroundings &m_surroundings;
};

}
