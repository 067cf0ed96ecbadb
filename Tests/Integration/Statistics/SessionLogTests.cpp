#include "Fakes/ServicesFixture.h"
#include "StatisticsViews/SessionExport.h"
#include "StatisticsViews/SessionLogViewModel.h"
#include "StatisticsViews/StatisticsViewModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QtCore/QCoreApplication>
#include <random>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

/// The log over a store, Monday 27 October 2025, 14:05 in Berlin, where the clocks went back the day before.
class SessionLogTest : public testing::Test, public ServicesFixture
{
protected:
    SessionLogTest()
    {
        wallClock.setCalendar({QTimeZone("Europe/Berlin"), Qt::Monday});
        wallClock.setNow(at(27, 14 * 60 + 5));
    }

    [[nodiscard]] Date at(int day, double minutes) const
    {
        return toDate(QDateTime({2025, 10, day}, {0, 0}, QTimeZone("Europe/Berlin"))) + Seconds(minutes * 60);
    }
    QUuid store(Date start, std::optional<Seconds> span, int planned, const char *phase = "work", bool done = true)
    {
        const QUuid id = identifiers.next();
        const SQLite::Database database(dependencies.coreDataStack.storePath().toStdString(), SQLite::OPEN_READWRITE);
        SQLite::Statement insert(database,
                                 "INSERT INTO PomodoroSessionRecord VALUES (?1, ?2, ?3, ?4, ?5, ?6, 0, ?7, 0)");
        insert.bind(1, id.toString(QUuid::WithoutBraces).toUpper().toStdString());
        insert.bind(2, phase);
        insert.bind(3, secondsSince1970(start));
        if (span)
            insert.bind(4, secondsSince1970(start + *span));
        insert.bind(5, planned);
        insert.bind(6, static_cast<int>(span.value_or(0s).count()));
        insert.bind(7, done ? 1 : 0);
        insert.exec();
        return id;
    }
    /// Lets the log hear of what was saved.
    void settle()
    {
        QCoreApplication::processEvents();
        runLoop.advance(0ms, [](auto) {});
    }
    static QString rowText(const SessionLogModel &model, int row)
    {
        QStringList parts;
        for (const int role : {SessionLogModel::day, SessionLogModel::dayCount, SessionLogModel::times,
                               SessionLogModel::length, SessionLogModel::outcome, SessionLogModel::isLast})
            parts.append(model.data(model.index(row), role).toString());
        return parts.join(QLatin1Char('|'));
    }

    SessionLogModel::Sources sources{dependencies.statsAggregator, dependencies.strings, wallClock, runLoop};
};

}

TEST_F(SessionLogTest, GroupsPhasesByTheDayTheyBeganOn)
{
    store(at(27, 13 * 60 + 29), 29min, 1500);
    store(at(27, 600), 8min, 900, "longBreak", false);
    store(at(27, 590), 20s, 300, "shortBreak", false);
    store(at(27, 580), std::nullopt, 0);
    store(at(26, 24 * 60 + 50), 25min, 1500); // 23:50, on a day of 25 hours.
    store(at(26, 150), 60min, 3600);          // From 02:30 to the second 02:30.
    store(at(25, 1439), 90min, 5400);
    store(at(1, 0) - 300 * 24h, 59s, 60, "nap");
    SessionLogModel model(sources);
    model.show(StatsRange::allTime, {});
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.append(rowText(model, row));
    EXPECT_EQ(rows, QStringList({u"Today|4 phases|13:29 – 13:58|29 min, 4 over|Done|false"_qs,
                                 u"||10:00 – 10:08|8 min of 15|Stopped|false"_qs,
                                 u"||09:50 – 09:50|20 s of 5 min|Stopped|false"_qs, u"||09:40|0 min|Done|true"_qs,
                                 u"Yesterday|2 phases|23:50 – 00:15|25 min|Done|false"_qs,
                                 u"||02:30 – 02:30|60 min|Done|true"_qs,
                                 u"Saturday 25 October|1 phase|23:59 – 01:29|90 min|Done|true"_qs}));
    // The day turns, and the year: nothing but the headings changes.
    wallClock.setNow(at(27, 24 * 60 * 100));
    wallClock.announceDay();
    EXPECT_TRUE(rowText(model, 0).startsWith(u"Monday 27 October 2025|4 phases|"_qs));
}

/// Whatever happens between two looks, a list that only hears the model's signals shows what the store has.
TEST_F(SessionLogTest, FollowsEveryChangeWithoutGapsAndDoubles)
{
    const char *const wish = std::getenv("TOMCATTO_SEED");
    const unsigned seed = wish != nullptr ? static_cast<unsigned>(std::atoi(wish)) : std::random_device()();
    SCOPED_TRACE("TOMCATTO_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
    const auto insert = [&](InsertMode mode) {
        // Many begin together.
        const Date start = at(27 - upTo(9), upTo(3) * 7 * 60);
        const auto kind =
            std::array{PomodoroPhase::working, PomodoroPhase::shortBreak}.at(static_cast<std::size_t>(upTo(1)));
        dependencies.sessionRepository.insert(
            {identifiers.next(), kind, start, start + 25min, 1500, 1500, 0, true, false}, mode);
    };
    for (int phase = 0; phase < 250; ++phase)
        insert(InsertMode::asynchronous);
    dependencies.sessionRepository.waitForWrites();
    settle();

    SessionLogModel model(sources);
    QStringList shown;
    QObject::connect(&model, &SessionLogModel::rowsRemoved, &model,
                     [&](auto, int first, int last) { shown.remove(first, last - first + 1); });
    const auto text = [&model](int row) {
        return rowText(model, row) + model.index(row).data(SessionLogModel::phaseId).toString();
    };
    QObject::connect(&model, &SessionLogModel::rowsInserted, &model, [&](auto, int first, int last) {
        for (int row = first; row <= last; ++row)
            shown.insert(row, text(row));
    });
    QObject::connect(&model, &SessionLogModel::dataChanged, &model, [&](const auto &first, const auto &last) {
        for (int row = first.row(); row <= last.row(); ++row)
            shown[row] = text(row);
    });
    StatsRange range = StatsRange::allTime;
    std::optional<PomodoroPhase> kind;
    std::optional<PomodoroSessionRecord> removed;
    model.show(range, kind);
    const auto change = [&] {
        switch (upTo(8)) {
        case 0:
            return insert(InsertMode::synchronous);
        case 1:
            return insert(InsertMode::asynchronous);
        case 2:
            if (model.rowCount() > 0)
                removed = dependencies.historyEditor
                              .remove(QUuid::fromString(
                                  model.index(upTo(model.rowCount() - 1)).data(SessionLogModel::phaseId).toString()))
                              .value();
            return;
        case 3:
            if (removed && dependencies.historyEditor.restore(*std::exchange(removed, {})))
                model.catchUp(at(27 - upTo(9), 0));
            return;
        case 4:
            range = allStatsRanges.at(static_cast<std::size_t>(upTo(3)));
            return model.show(range, kind);
        case 5:
            kind = upTo(2) == 0 ? std::optional(PomodoroPhase::working) : std::nullopt;
            return model.show(range, kind);
        case 6:
            wallClock.advance(upTo(20) == 0 ? 7h : 0h);
            wallClock.setCalendar({QTimeZone(upTo(1) == 0 ? "Europe/Berlin" : "America/Los_Angeles"), Qt::Monday});
            return wallClock.announceDay();
        default:
            return model.fetchMore({});
        }
    };
    for (int step = 0; step < 150; ++step) {
        change();
        if (upTo(2) > 0)
            continue;
        dependencies.sessionRepository.waitForWrites();
        settle();
        SessionLogModel whole(sources);
        whole.show(range, kind);
        while (whole.canFetchMore({}))
            whole.fetchMore({});
        const auto stored = dependencies.statsAggregator.sessionLog(dependencies.statsAggregator.interval(range), kind);
        ASSERT_EQ(static_cast<std::size_t>(whole.rowCount()), stored.size());
        ASSERT_TRUE(shown.size() == whole.rowCount() || model.canFetchMore({}));
        for (int row = 0; row < shown.size(); ++row) {
            ASSERT_EQ(whole.index(row).data(SessionLogModel::phaseId).toString(),
                      stored[static_cast<std::size_t>(row)].id.toString(QUuid::WithoutBraces));
            ASSERT_EQ(shown[row], rowText(whole, row) + whole.index(row).data(SessionLogModel::phaseId).toString())
                << step;
        }
    }
}

TEST_F(SessionLogTest, RemovesPutsBackAndAdds)
{
    const QUuid first = store(at(27, 13 * 60 + 29), 29min, 1500);
    store(at(20, 600), 5min, 300, "shortBreak");
    FakeSavePanel savePanel;
    SessionExport exports{dependencies.statsAggregator, dependencies.strings, wallClock, savePanel};
    const StatisticsViewModel statistics(
        {dependencies.statsAggregator, dependencies.settings, dependencies.strings, wallClock, exports},
        StatisticsForm::page);
    SessionLogViewModel log(statistics, dependencies.historyEditor, dependencies.settings, sources);
    AddPhaseViewModel &form = *log.form();
    const auto id = [](const QUuid &each) { return each.toString(QUuid::WithoutBraces); };
    int revealed = -1;
    QObject::connect(&log, &SessionLogViewModel::revealed, &log, [&revealed](int row) { revealed = row; });
    log.appear();
    const auto before = dependencies.sessionRepository.allSessions();
    log.remove(id(first));
    EXPECT_EQ(log.told(), u"Focus, 29 min removed"_qs);
    EXPECT_EQ(log.emptyTitle(), u"Nothing in this period"_qs);
    log.undoRemoval();
    EXPECT_EQ(log.told(), QString());
    EXPECT_EQ(revealed, 0);
    EXPECT_THAT(dependencies.sessionRepository.allSessions(), testing::UnorderedElementsAreArray(before));
    log.selectFilter(3);
    EXPECT_EQ(log.emptyTitle(), u"Nothing of this kind"_qs);

    log.openForm();
    EXPECT_EQ(form.startText(), u"13:00"_qs) << "the latest free time, on a round minute";
    EXPECT_EQ(form.line(), u"13:00 – 13:25, counts as a finished focus phase."_qs);
    EXPECT_EQ(form.dayTexts().mid(0, 3),
              QStringList({u"Today, 27 October"_qs, u"Yesterday, 26 October"_qs, u"Sat 25 October"_qs}));
    struct Case
    {
        int day;
        const char *start;
        const char *line;
    };
    for (const auto &[day, start, line] :
         std::initializer_list<Case>{{0, "13:40", "Focus, 13:29 – 13:58 is there already. Choose another start."},
                                     {0, "13.59", "It would end after now. Choose an earlier start."},
                                     {0, "25:99", "This is not a time of day. Write it like 09:30."},
                                     {0, "", "This is not a time of day. Write it like 09:30."},
                                     {0, "13:00 pm", "This is not a time of day. Write it like 09:30."},
                                     {0, "12:04 AM", "00:04 – 00:29, counts as a finished focus phase."},
                                     {0, "930", "09:30 – 09:55, counts as a finished focus phase."},
                                     {0, "7", "07:00 – 07:25, counts as a finished focus phase."},
                                     {1, "2:45", "02:45 – 03:10, counts as a finished focus phase."},
                                     {3, "23:50", "23:50 – 00:15, counts as a finished focus phase."}}) {
        form.chooseDay(day);
        form.writeStart(QString::fromLatin1(start));
        EXPECT_EQ(form.line(), QString::fromUtf8(line)) << start;
        EXPECT_EQ(form.isRefused(), !form.line().contains(u"counts"_qs)) << start;
    }
    form.add();
    EXPECT_FALSE(form.isOpen());
    EXPECT_EQ(log.told(), u"Focus, 25 min added: Friday 24 October"_qs) << "the week does not show it";
    EXPECT_EQ(log.filterIndex(), 0);
    log.openForm();
    form.writeStart(u"13:40"_qs);
    form.add();
    EXPECT_TRUE(form.isOpen());
    form.writeStart(u"9:30"_qs);
    form.add();
    EXPECT_EQ(log.told() + log.spoken(), u"Focus, 25 min added: Today"_qs);
    EXPECT_EQ(revealed, 1);
    // The second removal makes the first one final, leaving the page the second.
    log.remove(id(first));
    const QString second = log.rows()->index(0).data(SessionLogModel::phaseId).toString();
    for (int press = 0; press < 2; ++press)
        log.remove(second);
    EXPECT_EQ(log.told(), u"Focus, 25 min removed"_qs) << "pressed twice, it can still be undone";
    log.disappear();
    log.undoRemoval();
    EXPECT_EQ(dependencies.sessionRepository.allSessions().size(), 2);
    wallClock.setNow(at(27, 154 * 1440)); // The clocks went forward at 2:00 the day before.
    log.openForm();
    form.chooseDay(1);
    form.writeStart(u"2:30"_qs);
    EXPECT_EQ(form.line(), u"The clocks skip this time on that day. Choose another start."_qs);
    SQLite::Database(dependencies.coreDataStack.storePath().toStdString(), SQLite::OPEN_READWRITE)
        .exec("DROP TABLE PomodoroSessionRecord");
    log.remove(id(first));
    EXPECT_EQ(log.told(), u"The history could not be changed. It stays as it was."_qs);
    EXPECT_FALSE(log.canUndo());
}
