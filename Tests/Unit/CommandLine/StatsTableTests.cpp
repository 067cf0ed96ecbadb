#include "CommandLine/StatsTable.h"

#include <gtest/gtest.h>

using namespace tomcatto;

TEST(StatsTable, FitsTheDisplayAndKeepsItsColumns)
{
    StatsReport report;
    report.range = StatsRange::allTime;
    report.dailyGoal = 8;
    report.todayCount = 2;
    report.completedThisWeek = 3;
    report.completedThisMonth = 4;
    report.completedWorkCount = 30;
    report.focusMinutes = 751;
    report.currentStreak = 1;
    report.bestStreak = 2;
    report.dailyAverageTenths = 105;
    report.dailyAverageDays = 95;
    EXPECT_TRUE(statsTable({}, {}).startsWith(QStringLiteral("Nothing here yet. ")));
    report.chart = {QDate(2025, 1, 1), CalendarUnit::month, CalendarUnit::month};
    report.focusBuckets = {
        {QDate(2025, 1, 1), 640}, {QDate(2025, 2, 1), 0}, {QDate(2025, 3, 1), 1}, {QDate(2025, 4, 1), 110}};
    EXPECT_EQ(statsTable(report, {.columns = 35}).toStdString(), "All time\n"
                                                                 "  Focus phases    30\n"
                                                                 "  Focus time      12 h 31 min\n"
                                                                 "  Average         10.5 a day over 95 days\n"
                                                                 "\n"
                                                                 "Today             2 of 8\n"
                                                                 "This week         3\n"
                                                                 "This month        4\n"
                                                                 "Current streak    1 day\n"
                                                                 "Best streak       2 days\n"
                                                                 "\n"
                                                                 "Focus by month\n"
                                                                 "  Jan 2025  10 h 40 min  ██████████\n"
                                                                 "  Feb 2025        0 min\n"
                                                                 "  Mar 2025        1 min  ▏\n"
                                                                 "  Apr 2025   1 h 50 min  █▋\n");
    EXPECT_TRUE(statsTable(report, {.columns = 35, .hasColours = true}).endsWith(u"min  \x1b[31m█▋\x1b[0m\n"));
}
