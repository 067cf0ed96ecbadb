#include "Fakes/ServicesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QtCore/QCoreApplication>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

using Reason = AddRefusal::Reason;

/// The services at ten in the evening in UTC; times are minutes from the midnight before.
class HistoryEditorTest : public testing::Test, public ServicesFixture
{
protected:
    static constexpr int now = 22 * 60;
    static constexpr double midnight = 1'759'968'000;

    HistoryEditorTest() { wallClock.setNow(at(now)); }

    static Date at(double minutes) { return dateFromSeconds(midnight + minutes * 60); }
    /// Stores a phase as another program may have.
    void store(double start, const char *end, int seconds, const char *phase = "work") const
    {
        const SQLite::Database database(dependencies.coreDataStack.storePath().toStdString(), SQLite::OPEN_READWRITE);
        SQLite::Statement insert(database, "INSERT INTO PomodoroSessionRecord VALUES ('A', ?1, ?2, " +
                                               std::string(end) + ", 1, ?3, 0, 1, 0)");
        insert.bind(1, phase);
        insert.bind(2, midnight + start * 60);
        insert.bind(3, seconds);
        insert.exec();
    }
    /// What becomes of a phase: "added", the reason, or the times of the phase that is there.
    static std::string outcome(const std::expected<EndedPhase, AddRefusal> &result)
    {
        if (result)
            return "added";
        if (result.error().reason != Reason::overlap)
            return std::array{"length", "future", "", "store"}.at(static_cast<std::size_t>(result.error().reason));
        const EndedPhase &other = result.error().phase.value();
        const auto minutes = [](Date date) { return std::to_string(std::lround((date - at(0)) / 1min)); };
        return minutes(*other.startedAt) + "–" + (other.endedAt ? minutes(*other.endedAt) : "");
    }
};

}

TEST_F(HistoryEditorTest, AddsWhereNothingElseIs)
{
    store(-10, "?2 + 1200", 1200);                  // Over midnight.
    store(100, "?2 + 1500", 1500, "longBreak");     // 100 to 125.
    store(200, "?2", 0);                            // Without length.
    store(300, "NULL", 600);                        // Without end: to 310.
    store(400, "?2 - 3600", 600, "shortBreak");     // The clock was set back: to 410.
    store(500, "?2 + 86400 * 40", 600);             // The clock was set forward: to 510.
    store(600, "?2 + 1500", 1500, "nap");           // Of no known kind.
    store(-20 * 1440, "?2 + 86400 * 20 + 600", 60); // A long pause, to 10.
    wallClock.setNow(at(1000));
    ASSERT_TRUE(dependencies.stateMachine.start());
    wallClock.setNow(at(now));
    struct Case
    {
        double start;
        qint64 minutes;
        const char *expected;
    };
    for (const auto &[start, minutes, expected] : std::vector<Case>{
             {9, 5, "-28800–10"},    {-15, 10, "-28800–10"},      {10, 5, "added"},        {80, 20, "added"},
             {80, 21, "100–125"},    {110, 5, "100–125"},         {124.9, 9, "100–125"},   {90, 60, "100–125"},
             {125, 9, "added"},      {195, 10, "added"},          {309, 5, "300–310"},     {310, 5, "added"},
             {409.5, 1, "400–340"},  {410, 5, "added"},           {505, 1, "500–58100"},   {510, 5, "added"},
             {600, 5, "added"},      {990, 10, "added"},          {990, 11, "1000–"},      {now - 5, 5, "1000–"},
             {now - 5, 6, "future"}, {now + 60, 5, "future"},     {700, 0, "length"},      {700, 181, "length"},
             {700, 180, "added"},    {std::nan(""), 5, "future"}, {-INFINITY, 5, "future"}}) {
        SCOPED_TRACE(std::to_string(start) + " " + std::to_string(minutes));
        HistoryEditor &editor = dependencies.historyEditor;
        EXPECT_EQ(outcome(editor.checked(at(start), minutes)), expected);
        const auto added = editor.add(at(start), minutes);
        EXPECT_EQ(outcome(added), expected);
        if (!added)
            continue;
        EXPECT_NE(outcome(editor.add(at(start), minutes)), expected) << "it is there now";
        EXPECT_TRUE(editor.remove(added->id).value());
    }
}

TEST_F(HistoryEditorTest, FiguresFollowWhatIsAddedRemovedAndPutBack)
{
    StatsAggregator &stats = dependencies.statsAggregator;
    const auto figures = [&stats] {
        QCoreApplication::processEvents();
        return std::vector{stats.todayCount(), stats.focusMinutes(stats.interval(StatsRange::today)),
                           stats.currentStreak()};
    };
    using Figures = std::vector<qint64>;
    const auto today = dependencies.historyEditor.add(at(600), 25);
    EXPECT_EQ(figures(), (Figures{1, 25, 1}));
    const auto yesterday = dependencies.historyEditor.add(at(-600), 30);
    EXPECT_EQ(figures(), (Figures{1, 25, 2})) << "into the past as well";
    const PomodoroSessionRecord expected{yesterday->id, QStringLiteral("work"), at(-600), at(-570), 1800, 1800, 0, true,
                                         false};
    EXPECT_EQ(dependencies.historyEditor.remove(yesterday->id).value(), expected);
    EXPECT_EQ(figures(), (Figures{1, 25, 1}));
    EXPECT_EQ(dependencies.historyEditor.remove(yesterday->id).value(), std::nullopt);
    EXPECT_TRUE(dependencies.historyEditor.restore(expected));
    EXPECT_EQ(figures(), (Figures{1, 25, 2}));
    EXPECT_EQ(dependencies.sessionRepository.allSessions().back(), expected);
    EXPECT_TRUE(dependencies.historyEditor.remove(today->id).value());
    EXPECT_EQ(figures(), (Figures{0, 0, 1})) << "yesterday's holds the streak";
}

TEST_F(HistoryEditorTest, TellsOfAStoreThatFails)
{
    SQLite::Database(dependencies.coreDataStack.storePath().toStdString(), SQLite::OPEN_READWRITE)
        .exec("DROP TABLE PomodoroSessionRecord");
    HistoryEditor &editor = dependencies.historyEditor;
    EXPECT_EQ(outcome(editor.checked(at(0), 5)), "store");
    EXPECT_EQ(outcome(editor.add(at(0), 5)), "store");
    EXPECT_THAT(editor.add(at(0), 5).error().problem.toStdString(), testing::HasSubstr("no such table"));
    EXPECT_FALSE(editor.remove(QUuid::createUuid()));
    EXPECT_FALSE(editor.restore({}));
}
