#pragma once

#include "Statistics/DailyStat.h"
#include "Statistics/FocusBucket.h"
#include "Statistics/StatsRange.h"

#include <nlohmann/json_fwd.hpp>
#include <vector>

namespace tomcatto {

class StatsAggregator;

/// Every figure of one range, gathered at one moment, as the command line prints them.
struct StatsReport
{
    StatsRange range = StatsRange::today;
    DateInterval interval;
    qint64 dailyGoal = 0;
    qint64 todayCount = 0;
    qint64 completedThisWeek = 0;
    qint64 completedThisMonth = 0;
    /// Of the range's interval.
    qint64 completedWorkCount = 0;
    /// Of the range's interval, whole minutes.
    qint64 focusMinutes = 0;
    qint64 currentStreak = 0;
    qint64 bestStreak = 0;
    /// Tenths of a completed work phase a day, over the range's days.
    qint64 dailyAverageTenths = 0;
    /// How many days these are, today the last of them.
    qint64 dailyAverageDays = 0;
    std::optional<Date> earliestSessionDate;
    StatsChartLayout chart;
    std::vector<FocusBucket> focusBuckets;
    /// The range's days, oldest first.
    std::vector<DailyStat> dailyStats;
    /// 7 rows by 16 weeks.
    std::vector<std::vector<qint64>> weeklyHeatmap;
    /// The day of its first row and column; the rows' weekdays begin with this one's.
    QDate heatmapStart;

    bool operator==(const StatsReport &) const = default;
};

/// Asks the aggregator for every figure of the range. @param dailyGoal is carried along. Main thread only.
[[nodiscard]] StatsReport gatherStatsReport(const StatsAggregator &aggregator, StatsRange range, qint64 dailyGoal);

/// The report as one object: keys in camel case, instants in ISO 8601 UTC, days as yyyy-MM-dd, the average with one
/// decimal, the first weekday as its English name in small letters. A date that is absent is left out.
[[nodiscard]] nlohmann::ordered_json toJson(const StatsReport &report);

}
