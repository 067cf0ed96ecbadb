#include "Statistics/StatsReport.h"

#include "Statistics/StatsAggregator.h"

#include <nlohmann/json.hpp>
#include <QtCore/QLocale>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

constexpr qint64 tenths = 10;
constexpr qint64 heatmapWeeks = 16;

std::string dayText(QDate day)
{
    return day.toString(Qt::ISODate).toStdString();
}

Json bucketsJson(const std::vector<FocusBucket> &buckets)
{
    Json list = Json::array();
    for (const FocusBucket &bucket : buckets)
        list.push_back({{"start", dayText(bucket.start)}, {"minutes", bucket.minutes}});
    return list;
}

Json daysJson(const std::vector<DailyStat> &stats)
{
    Json list = Json::array();
    for (const DailyStat &stat : stats)
        list.push_back({{"day", dayText(stat.day)}, {"count", stat.count}});
    return list;
}

}

StatsReport gatherStatsReport(const StatsAggregator &aggregator, StatsRange range, qint64 dailyGoal)
{
    StatsReport report;
    const qint64 days = aggregator.dayCount(range);
    report.range = range;
    report.interval = aggregator.interval(range);
    report.dailyGoal = dailyGoal;
    report.todayCount = aggregator.todayCount();
    report.completedThisWeek = aggregator.completedThisWeek();
    report.completedThisMonth = aggregator.completedThisMonth();
    report.completedWorkCount = aggregator.completedWorkCount(report.interval);
    report.focusMinutes = aggregator.focusMinutes(report.interval);
    report.currentStreak = aggregator.currentStreak();
    report.bestStreak = aggregator.bestStreak();
    report.dailyAverageTenths = aggregator.dailyAverage(days, tenths);
    report.dailyAverageDays = days;
    report.earliestSessionDate = aggregator.earliestSessionDate();
    report.chart = aggregator.chartLayout(range);
    report.focusBuckets = aggregator.focusBuckets(report.chart.start, report.chart.bucketUnit);
    report.dailyStats = aggregator.dailyStats(days - 1);
    report.weeklyHeatmap = aggregator.weeklyHeatmap(heatmapWeeks);
    report.heatmapStart = aggregator.heatmapStart(heatmapWeeks);
    return report;
}

Json toJson(const StatsReport &report)
{
    Json json{{"range", rawValue(report.range).toStdString()},
              {"intervalStart", toIso8601(report.interval.start).toStdString()},
              {"intervalEnd", toIso8601(report.interval.end).toStdString()},
              {"dailyGoal", report.dailyGoal},
              {"todayCount", report.todayCount},
              {"completedThisWeek", report.completedThisWeek},
              {"completedThisMonth", report.completedThisMonth},
              {"completedWorkCount", report.completedWorkCount},
              {"focusMinutes", report.focusMinutes},
              {"currentStreak", report.currentStreak},
              {"bestStreak", report.bestStreak},
              {"dailyAverage", static_cast<double>(report.dailyAverageTenths) / tenths},
              {"dailyAverageDays", report.dailyAverageDays}};
    if (report.earliestSessionDate)
        json["earliestSessionDate"] = toIso8601(*report.earliestSessionDate).toStdString();
    json["chart"] = {{"start", dayText(report.chart.start)},
                     {"bucketUnit", rawValue(report.chart.bucketUnit).toStdString()},
                     {"strideUnit", rawValue(report.chart.strideUnit).toStdString()}};
    json["focusBuckets"] = bucketsJson(report.focusBuckets);
    json["dailyStats"] = daysJson(report.dailyStats);
    json["weeklyHeatmap"] = report.weeklyHeatmap;
    json["heatmapStart"] = dayText(report.heatmapStart);
    json["firstWeekday"] = QLocale::c().dayName(report.heatmapStart.dayOfWeek()).toLower().toStdString();
    return json;
}

}
