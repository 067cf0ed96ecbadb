#include "Fakes/ManualWallClock.h"
#include "ManualSessionHistory.h"
#include "Statistics/StatsAggregator.h"
#include "Statistics/StatsReport.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tomcatto {
namespace {

TEST(StatsReport, PrintsEveryFigure)
{
    ManualSessionHistory history;
    ManualWallClock clock(dateFromSeconds(1'741'777'200), {QTimeZone("Europe/Berlin"), Qt::Monday}); // 2025-03-12 12:00
    const StatsAggregator stats(history, clock);
    EXPECT_FALSE(toJson(gatherStatsReport(stats, StatsRange::allTime, 8)).contains("earliestSessionDate"));

    history.earliest = clock.now() - Seconds(86'400.5);
    history.stamps = {{*history.earliest, 1500}, {clock.now() - Seconds(7200), 1500}, {clock.now(), 1530}};
    history.announceSave();
    const StatsReport report = gatherStatsReport(stats, StatsRange::allTime, 8);
    auto json = toJson(report);
    EXPECT_EQ(json["weeklyHeatmap"].size(), 7U);
    EXPECT_EQ(json["weeklyHeatmap"][2][15], 2);
    json.erase("weeklyHeatmap");
    EXPECT_EQ(json.dump(),
              R"({"range":"allTime","intervalStart":"2025-03-11T10:59:59Z","intervalEnd":"2025-03-12T23:00:00Z",)"
              R"("dailyGoal":8,"todayCount":2,"completedThisWeek":3,"completedThisMonth":3,"completedWorkCount":3,)"
              R"("focusMinutes":75,"currentStreak":2,"bestStreak":2,"dailyAverage":1.5,"dailyAverageDays":2,)"
              R"("earliestSessionDate":"2025-03-11T10:59:59Z",)"
              R"("chart":{"start":"2025-03-11","bucketUnit":"day","strideUnit":"day"},)"
              R"("focusBuckets":[{"start":"2025-03-11","minutes":25},{"start":"2025-03-12","minutes":50}],)"
              R"("dailyStats":[{"day":"2025-03-11","count":1},{"day":"2025-03-12","count":2}],)"
              R"("heatmapStart":"2024-11-25","firstWeekday":"monday"})");
}

}
}
