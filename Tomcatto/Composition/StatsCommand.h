#pragma once

#include "Control/CommandTable.h"
#include "Statistics/StatsAggregator.h"
#include "Timer/PomodoroSettings.h"

namespace tomcatto {

/// Adds "stats", which gives the figures of a "range". All outlive the table.
void addStatsCommand(CommandTable &table, const StatsAggregator &aggregator, const PomodoroSettings &settings);

}
