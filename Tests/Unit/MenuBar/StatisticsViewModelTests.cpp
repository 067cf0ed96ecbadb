#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualWallClock.h"
#include "StatisticsViews/ChartScale.h"
#include "StatisticsViews/StatisticsViewModel.h"
#include "Unit/Statistics/ManualSessionHistory.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

TEST(ChartScale, TakesRoundStepsThatFitTwice)
{
    struct Row
    {
        qint64 peak;
        ChartScale expected;
    };
    const Row rows[] = {
        {0, {5, 10, false}},
        {10, {5, 10, false}},
        {19, {5, 19, false}},
        {20, {10, 20, false}},
        {150, {60, 150, false}},
        {599, {240, 599, false}},
        {600, {300, 600, true}},
        {1300, {600, 1300, true}},
        {2399, {600, 2399, true}},
        {2400, {1200, 2400, true}},
        {60'000, {30'000, 60'000, true}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(chartScale(row.peak), row.expected) << row.peak << " gives " << chartScale(row.peak).step;
}

/// Thursday 9 October 2025, 08:53 UTC, weeks from Monday.
struct Statistics
{
    FakeUserDefaults defaults;
    ManualWallClock wallClock;
    ManualSessionHistory history;
    LanguageOverrideService language{defaults, {u"en"_qs}};
    LocalizedStrings strings{language};
    PomodoroSettings settings{defaults};
    StatsAggregator aggregator{history, wallClock};

    void add(int daysAgo, qint64 seconds)
    {
        const Date start = wallClock.now() - Seconds(86400.0 * daysAgo);
        history.stamps.insert(history.stamps.begin(), {start, seconds});
        history.earliest = history.stamps.front().startedAt;
    }
    [[nodiscard]] StatisticsViewModel::Sources sources() { return {aggregator, settings, strings, wallClock}; }
};

QVariant field(const QVariantList &rows, qsizetype index, const QString &key)
{
    return rows.at(index).toMap().value(key);
}

QString figureText(const StatisticsViewModel &model, qsizetype index)
{
    QString text;
    for (const QVariant &part : field(model.figures(), index, u"parts"_qs).toList())
        text += part.toMap().value(u"text"_qs).toString() + u' ';
    return text.trimmed();
}

TEST(StatisticsViewModel, ShowsTheWeekInPlainRows)
{
    Statistics test;
    for (int phase = 0; phase < 3; ++phase)
        test.add(0, 1500);
    test.add(1, 3000);
    test.settings.setDailyGoalPomodoros(8);
    StatisticsViewModel model(test.sources());
    model.setShown(true);
    EXPECT_EQ(model.rangeTexts(), QStringList({u"Today"_qs, u"Week"_qs, u"Month"_qs, u"All time"_qs}));
    EXPECT_EQ(figureText(model, 0), u"2 h 05 min"_qs);
    EXPECT_EQ(figureText(model, 1), u"4"_qs);
    EXPECT_EQ(figureText(model, 2), u"2"_qs);
    EXPECT_EQ(field(model.figures(), 0, u"name"_qs).toString(), u"Focus time: 2 h 5 min, this week"_qs);

    ASSERT_EQ(model.chartBars().size(), 7);
    EXPECT_EQ(field(model.chartBars(), 6, u"value"_qs).toInt(), 75);
    EXPECT_EQ(field(model.chartBars(), 6, u"label"_qs).toString(), u"Thu"_qs);
    EXPECT_TRUE(field(model.chartBars(), 6, u"today"_qs).toBool());
    EXPECT_EQ(field(model.chartBars(), 5, u"name"_qs).toString(), u"Wednesday 8 October, 50 min of focus"_qs);
    EXPECT_EQ(field(model.chartTicks(), 2, u"label"_qs).toString(), u"60"_qs);

    ASSERT_EQ(model.heatCells().size(), 7 * 16);
    const qsizetype today = 15 * 7 + 3;
    EXPECT_TRUE(field(model.heatCells(), today, u"today"_qs).toBool());
    EXPECT_EQ(field(model.heatCells(), today, u"level"_qs).toInt(), 2) << "3 of 8, rounded up";
    EXPECT_EQ(field(model.heatCells(), today, u"name"_qs).toString(), u"Thursday 9 October, 3 phases"_qs);
    EXPECT_EQ(field(model.heatCells(), today - 1, u"level"_qs).toInt(), 1);
    EXPECT_EQ(field(model.heatCells(), today + 1, u"level"_qs).toInt(), -1);
    EXPECT_EQ(model.heatDayLabels(), QStringList({u"Mon"_qs, {}, u"Wed"_qs, {}, u"Fri"_qs, {}, u"Sun"_qs}));
    test.language.setLanguage(SelectedLanguage::de);
    EXPECT_EQ(field(model.heatCells(), today, u"name"_qs).toString(), u"Donnerstag, 9. Oktober, 3 Phasen"_qs);
}

TEST(StatisticsViewModel, FollowsRangeHistoryGoalAndLanguage)
{
    Statistics test;
    StatisticsViewModel model(test.sources());
    model.setShown(true);
    int changes = 0;
    QObject::connect(&model, &StatisticsViewModel::changed, &model, [&] { ++changes; });
    EXPECT_TRUE(model.isEmpty());
    EXPECT_EQ(model.emptyTitle(), u"Nothing here yet"_qs);
    test.add(400, 36'000);
    test.history.announceSave();
    EXPECT_TRUE(model.isEmpty());
    EXPECT_EQ(model.emptyTitle(), u"Nothing in this period"_qs);

    model.selectRange(3);
    EXPECT_FALSE(model.isEmpty());
    EXPECT_EQ(model.chartTitle(), u"Focus per month"_qs);
    EXPECT_EQ(field(model.chartTicks(), 1, u"label"_qs).toString(), u"5 h"_qs);
    qsizetype labels = 0;
    for (const QVariant &bar : model.chartBars())
        labels += !bar.toMap().value(u"label"_qs).toString().isEmpty();
    EXPECT_GE(labels, 4);
    EXPECT_LE(labels, 8);

    test.add(0, 60);
    test.settings.setDailyGoalPomodoros(1);
    test.history.announceSave();
    EXPECT_EQ(field(model.heatCells(), 15 * 7 + 3, u"level"_qs).toInt(), 4);
    // Far enough east it is the next day already.
    test.wallClock.setCalendar({QTimeZone("Pacific/Kiritimati"), Qt::Monday});
    test.wallClock.advance(Seconds(7200));
    test.wallClock.announceDay();
    EXPECT_EQ(field(model.heatCells(), 15 * 7 + 3, u"level"_qs).toInt(), 4);
    EXPECT_EQ(field(model.heatCells(), 15 * 7 + 4, u"level"_qs).toInt(), 0) << "no day to come any more";
    test.language.setLanguage(SelectedLanguage::de);
    EXPECT_EQ(model.rangeTexts().first(), u"Heute"_qs);
    changes = 0;
    model.selectRange(3);
    model.selectRange(4);
    model.selectRange(-1);
    EXPECT_EQ(changes, 0);
}

}
}
