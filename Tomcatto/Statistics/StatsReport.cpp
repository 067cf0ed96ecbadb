#include "Statistics/StatsReport.h"

#include "Foundation/EnumTexts.h"
#include "Statistics/StatsAggregator.h"

#include <nlohmann/json.hpp>

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

QString rangeTitle(StatsRange range)
{
    return textOf(std::array{"Today", "This week", "This month", "All time"}, range);
}

QString durationText(qint64 minutes)
{
    if (minutes < 60)
        return QStringLiteral("%1 min").arg(minutes);
    return QStringLiteral("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

QString daysText(qint64 days)
{
    return days == 1 ? QStringLiteral("1 day") : QStringLiteral("%1 days").arg(days);
}

QString line(const QString &name, const QString &value)
{
    constexpr int valueColumn = 18;
    return name.leftJustified(valueColumn) + value + u'\n';
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
    report.earliestSessionDate = aggregator.earliestSessionDate();
    report.chart = aggregator.chartLayout(range);
    report.focusBuckets = aggregator.focusBuckets(report.chart.start, report.chart.bucketUnit);
    report.dailyStats = aggregator.dailyStats(days - 1);
    report.weeklyHeatmap = aggregator.weeklyHeatmap(heatmapWeeks);
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
              {"dailyAverage", static_cast<double>(report.dailyAverageTenths) / tenths}};
    if (report.earliestSessionDate)
        json["earliestSessionDate"] = toIso8601(*report.earliestSessionDate).toStdString();
    json["chart"] = {{"start", dayText(report.chart.start)},
                     {"bucketUnit", rawValue(report.chart.bucketUnit).toStdString()},
                     {"strideUnit", rawValue(report.chart.strideUnit).toStdString()}};
    json["focusBuckets"] = bucketsJson(report.focusBuckets);
    json["dailyStats"] = daysJson(report.dailyStats);
    json["weeklyHeatmap"] = report.weeklyHeatmap;
    return json;
}

QString toText(const StatsReport &report)
{
    if (report.bestStreak == 0)
        return QStringLiteral("Nothing here yet. Your first finished focus phase shows up here.\n");
    const QString average =
        QStringLiteral("%1.%2 a day").arg(report.dailyAverageTenths / tenths).arg(report.dailyAverageTenths % tenths);
    return rangeTitle(report.range) + u'\n' +
           line(QStringLiteral("  Focus phases"), QString::number(report.completedWorkCount)) +
           line(QStringLiteral("  Focus time"), durationText(report.focusMinutes)) +
           line(QStringLiteral("  Average"), average) + u'\n' +
           line(QStringLiteral("Today"), QStringLiteral("%1 of %2").arg(report.todayCount).arg(report.dailyGoal)) +
           line(QStringLiteral("This week"), QString::number(report.completedThisWeek)) +
           line(QStringLiteral("This month"), QString::number(report.completedThisMonth)) +
           line(QStringLiteral("Current streak"), daysText(report.currentStreak)) +
           line(QStringLiteral("Best streak"), daysText(report.bestStreak));
}

}
