#include "Fakes/CapturedLog.h"
#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualWallClock.h"
#include "StatisticsViews/ChartScale.h"
#include "StatisticsViews/SessionExport.h"
#include "StatisticsViews/StatisticsViewModel.h"
#include "Unit/Statistics/ManualSessionHistory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <sys/stat.h>

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

    const std::pair<qint64, qint64> stepsAbove[] = {{0, 5},       {15, 5},          {16, 10},        {150, 60},
                                                    {900, 300},   {901, 600},       {3604, 3000},    {9000, 3000},
                                                    {9001, 6000}, {30'720, 12'000}, {36'001, 30'000}};
    for (const auto &[peak, step] : stepsAbove)
        EXPECT_EQ(chartScaleAbove(peak), (ChartScale{step, 3 * step, step >= 60})) << peak;
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
    [[nodiscard]] StatisticsSources sources() { return {aggregator, settings, strings, wallClock, sessionExport}; }
    FakeSavePanel savePanel;
    SessionExport sessionExport{aggregator, strings, wallClock, savePanel};
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
    StatisticsViewModel model(test.sources(), StatisticsForm::panel);
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
    StatisticsViewModel model(test.sources(), StatisticsForm::panel);
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

TEST(StatisticsViewModel, TellsThePageWhichDaysAFigureIsAbout)
{
    Statistics test;
    StatisticsViewModel model(test.sources(), StatisticsForm::page);
    model.setShown(true);
    EXPECT_EQ(figureText(model, 3), u"0 sessions"_qs);
    EXPECT_FALSE(model.canExport());
    test.add(0, 1500);
    test.add(8, 1500);
    test.add(400, 356'999);
    test.history.announceSave();
    EXPECT_TRUE(model.canExport());
    EXPECT_EQ(field(model.figures(), 1, u"tip"_qs).toString(), u"1 today, 1 this week, 2 this month"_qs);
    EXPECT_EQ(field(model.figures(), 2, u"caption"_qs).toString(), u"best 1"_qs);
    EXPECT_EQ(field(model.figures(), 3, u"name"_qs).toString(), u"Daily average: 0.1 sessions, last 7 days"_qs);
    EXPECT_EQ(field(model.chartBars(), 6, u"tip"_qs).toString(), u"25 min"_qs) << "its day stands below it";
    // The last days of June have no room before July.
    ASSERT_EQ(model.heatMonthLabels().size(), 4);
    EXPECT_EQ(field(model.heatMonthLabels(), 0, u"column"_qs).toInt(), 1);
    EXPECT_EQ(field(model.heatMonthLabels(), 3, u"text"_qs).toString(), u"Oct"_qs);

    model.selectRange(3);
    EXPECT_EQ(figureText(model, 0), u"99 h 59 min"_qs);
    test.history.stamps.push_back({test.wallClock.now(), 60});
    test.history.announceSave();
    EXPECT_EQ(figureText(model, 0), u"100 h"_qs);
    EXPECT_EQ(field(model.figures(), 3, u"caption"_qs).toString(), u"last 401 days"_qs);
    model.selectRange(2);
    EXPECT_EQ(field(model.chartBars(), 29, u"tip"_qs).toString(), u"Thursday 9 October, 26 min of focus"_qs);
    model.setShown(false);
    EXPECT_TRUE(model.heatCells().isEmpty());
    test.history.announceSave();
    EXPECT_TRUE(model.heatCells().isEmpty());
}

TEST(SessionExport, SavesTheRangeWhereTheUserWantsItAndLogsWhatFails)
{
    Statistics test;
    test.add(0, 1500);
    const QTemporaryDir folder;
    const CapturedLog log;
    const QString path = folder.filePath(u"mine.csv"_qs);
    {
        StatisticsViewModel model(test.sources(), StatisticsForm::panel);
        model.exportSessions();
    }
    ASSERT_EQ(test.savePanel.requests.size(), 1U);
    EXPECT_EQ(test.savePanel.requests[0].fileName, u"tomcatto-sessions-2025-10-09.csv"_qs);
    EXPECT_FALSE(QFile::exists(path));
    test.savePanel.choose(path);
    EXPECT_TRUE(QTest::qWaitFor([&path] { return QFile::exists(path); })) << "the panel that asked is closed by then";
    EXPECT_EQ(log.count(LogLevel::error), 0);
    test.savePanel.choose(folder.filePath(u"nowhere/mine.csv"_qs));
    EXPECT_TRUE(QTest::qWaitFor([&log] { return log.count(LogLevel::error) == 1; }));
    EXPECT_THAT(log.lastMessage().toStdString(), testing::StartsWith("CSV export failed: "));
}

TEST(SessionExport, HoldsUpNothingButAFastEnd)
{
    Statistics test;
    test.add(0, 1500);
    const QTemporaryDir folder;
    // Like a disk that hangs, it takes nothing before somebody reads it.
    const QString pipe = folder.filePath(u"pipe"_qs);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), S_IRWXU), 0);
    const QString path = folder.filePath(u"mine.csv"_qs);
    {
        SessionExport exports(test.aggregator, test.strings, test.wallClock, test.savePanel);
        exports.run(StatsRange::allTime);
        test.savePanel.choose(pipe);
        test.savePanel.choose(path);
        QFile reader(pipe);
        ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
        EXPECT_TRUE(reader.readAll().startsWith("Type,Duration"));
    }
    EXPECT_TRUE(QFile::exists(path));
}

}
}
