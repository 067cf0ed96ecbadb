#include "Fakes/ManualWallClock.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "StoreFolder.h"

#include <QtTest/QSignalSpy>
#include <semaphore>

using namespace tomcatto;

class SessionRepositoryTests : public StoreFolder
{
protected:
    [[nodiscard]] PomodoroSessionInsertRequest request(double startedAt, PomodoroPhase phase = PomodoroPhase::working,
                                                       bool wasCompleted = true) const
    {
        const Date start = dateFromSeconds(startedAt);
        return {m_id, phase, start, start + Seconds(60.5), 1'500, 60, 3, wasCompleted, !wasCompleted};
    }
    void insert(const PomodoroSessionInsertRequest &request) { m_repository->insert(request, InsertMode::synchronous); }
    template<typename Records>
    static std::vector<double> starts(const Records &records)
    {
        std::vector<double> seconds;
        for (const auto &record : records)
            seconds.push_back(secondsSince1970(std::optional<Date>(record.startedAt).value()));
        return seconds;
    }
    static DateInterval interval(double start, double end) { return {dateFromSeconds(start), dateFromSeconds(end)}; }

    using Starts = std::vector<double>;
    const QUuid m_id{QStringLiteral("{0f0f0f0f-aaaa-4bbb-8ccc-abcdefabcdef}")};
    const QString m_shortBreak = QStringLiteral("shortBreak");
    ManualWallClock m_clock;
    CoreDataStack m_stack{directory()};
    std::unique_ptr<SessionRepository> m_repository = std::make_unique<SessionRepository>(m_stack, m_clock);
};

TEST_F(SessionRepositoryTests, storesEveryFieldAsGivenEvenTwice)
{
    insert(request(1'000.25, PomodoroPhase::shortBreak, false));
    insert(request(1'000.25, PomodoroPhase::shortBreak, false));
    EXPECT_EQ(readRaw("SELECT group_concat(id || ' ' || phase || ' ' || startedAt || ' ' || endedAt || ' '"
                      " || plannedDurationSeconds || ' ' || actualDurationSeconds || ' ' || cycleIndex || ' '"
                      " || wasCompleted || ' ' || wasSkipped, ';') FROM PomodoroSessionRecord"),
              "0F0F0F0F-AAAA-4BBB-8CCC-ABCDEFABCDEF shortBreak 1000.25 1060.75 1500 60 3 0 1;"
              "0F0F0F0F-AAAA-4BBB-8CCC-ABCDEFABCDEF shortBreak 1000.25 1060.75 1500 60 3 0 1");
    const Date start = dateFromSeconds(1'000.25);
    const PomodoroSessionRecord expected{m_id, m_shortBreak, start, start + Seconds(60.5), 1'500, 60, 3, false, true};
    EXPECT_EQ(m_repository->allSessions(), (std::vector{expected, expected}));
}

TEST_F(SessionRepositoryTests, queriesKeepTheirBoundsOrderAndConditions)
{
    EXPECT_EQ(m_repository->earliestSessionDate(), std::nullopt);
    EXPECT_EQ(m_repository->completedWorkCount(), 0);
    EXPECT_TRUE(m_repository->completedWorkStamps().empty());
    for (const double start : {300.0, 100.0, 200.0})
        insert(request(start));
    insert(request(150.0, PomodoroPhase::longBreak));
    insert(request(250.0, PomodoroPhase::working, false));
    EXPECT_EQ(starts(m_repository->sessions(interval(100, 300))), (Starts{250, 200, 150, 100}));
    EXPECT_EQ(starts(m_repository->sessions(interval(100.5, 300.5), PomodoroPhase::working)), (Starts{300, 250, 200}));
    EXPECT_EQ(starts(m_repository->sessions(interval(100, 301), PomodoroPhase::working, 2)), (Starts{300, 250}));
    EXPECT_EQ(starts(m_repository->sessions(interval(100, 301), std::nullopt, 1)), (Starts{300}));
    EXPECT_EQ(starts(m_repository->completedWorkStamps()), (Starts{100, 200, 300}));
    EXPECT_EQ(m_repository->completedWorkStamps().front().actualSeconds, 60);
    EXPECT_EQ(m_repository->completedWorkCount(), 3);
    EXPECT_EQ(starts(m_repository->completedWork(dateFromSeconds(200))), (Starts{200, 300}));
    EXPECT_EQ(m_repository->earliestSessionDate(), dateFromSeconds(100));
    std::vector<PomodoroSessionRecord> visited;
    const auto visit = [&visited](const PomodoroSessionRecord &record) { visited.push_back(record); };
    EXPECT_TRUE(m_repository->forEachSession(interval(100, 300), visit));
    EXPECT_EQ(visited, m_repository->sessions(interval(100, 300)));
}

TEST_F(SessionRepositoryTests, takesWhateverAnotherProgramStored)
{
    executeRaw("INSERT INTO PomodoroSessionRecord VALUES"
               " ('no identifier', 'nap', NULL, 'soon', 99999999999, -99999999999, 40000, 2, NULL),"
               " (NULL, 'work', 9e999, 50, NULL, 7, x'00', 1, 1), (NULL, 'work', 'text', 50, 1, 1, 1, 1, 0)");
    const QString nap = QStringLiteral("nap");
    const PomodoroSessionRecord first{{}, nap, {}, {}, 2'147'483'647, -2'147'483'648, 32'767, false, false};
    ASSERT_EQ(m_repository->allSessions().size(), 3U);
    EXPECT_EQ(m_repository->allSessions().front(), first);
    EXPECT_TRUE(m_repository->completedWorkStamps().empty());
    insert(request(500));
    EXPECT_EQ(m_repository->earliestSessionDate(), dateFromSeconds(500));
}

TEST_F(SessionRepositoryTests, pruneKeepsWhatStartedAtTheCutoff)
{
    // The clocks go forward on 30 March 2025: ten calendar days are an hour short of 240 hours.
    m_clock.setCalendar({QTimeZone("Europe/Berlin"), Qt::Monday});
    m_clock.setNow(toDate(QDateTime(QDate(2025, 4, 4), QTime(12, 0), QTimeZone("Europe/Berlin"))));
    const double cutoff = secondsSince1970(m_clock.now()) - 239 * 3'600;
    for (const double start : {cutoff - 0.5, cutoff, cutoff + 1})
        insert(request(start));
    QSignalSpy saved(m_repository.get(), &SessionRepository::didSave);
    m_repository->prune(10);
    m_stack.save();
    EXPECT_EQ(starts(m_repository->completedWorkStamps()), (Starts{cutoff, cutoff + 1}));
    QCoreApplication::processEvents();
    EXPECT_EQ(saved.count(), 4) << "three inserts and the deletion, all on the main loop";
}

TEST_F(SessionRepositoryTests, writesInTheOrderHandedOverAndAnnouncesOnTheMainThread)
{
    std::binary_semaphore gate(0);
    QThread *signalThread = nullptr;
    QObject::connect(m_repository.get(), &SessionRepository::didSave, &m_stack,
                     [&signalThread] { signalThread = QThread::currentThread(); });
    QThread *afterwardsThread = nullptr;
    m_stack.newBackgroundContext().perform([&gate](ManagedObjectContext &) { gate.acquire(); });
    m_repository->insert(request(1), InsertMode::asynchronous,
                         [&afterwardsThread] { afterwardsThread = QThread::currentThread(); });
    m_repository->insert(request(2), InsertMode::asynchronous);
    EXPECT_EQ(m_repository->completedWorkCount(), 0) << "nothing is written before its moment";
    gate.release();
    insert(request(3));
    EXPECT_EQ(readRaw("SELECT group_concat(startedAt) FROM PomodoroSessionRecord ORDER BY rowid"), "1.0,2.0,3.0");
    EXPECT_EQ(signalThread, nullptr);
    EXPECT_EQ(afterwardsThread, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(signalThread, QThread::currentThread());
    EXPECT_EQ(afterwardsThread, QThread::currentThread());
}

TEST_F(SessionRepositoryTests, recoversAPhaseOnlyWhereItsRecordIsMissing)
{
    insert(request(1));
    auto other = request(1);
    other.phase = PomodoroPhase::longBreak;
    for (const auto &recovered : {request(1), request(2), other, request(2)})
        m_repository->insertRecovered(recovered);
    m_stack.save();
    EXPECT_EQ(
        readRaw("SELECT group_concat(phase || startedAt) FROM (SELECT * FROM PomodoroSessionRecord ORDER BY rowid)"),
        "work1.0,work2.0,longBreak1.0");
}

TEST_F(SessionRepositoryTests, writesNothingOnceItIsGone)
{
    std::binary_semaphore gate(0);
    m_stack.newBackgroundContext().perform([&gate](ManagedObjectContext &) { gate.acquire(); });
    m_repository->insert(request(1), InsertMode::asynchronous);
    m_repository.reset();
    gate.release();
    m_stack.save();
    EXPECT_EQ(readRaw("SELECT count(*) FROM PomodoroSessionRecord"), "0");
}

TEST_F(SessionRepositoryTests, valuesThatDoNotFitAreFatal)
{
    using Request = PomodoroSessionInsertRequest;
    using Case = std::pair<qint64 Request::*, qint64>;
    for (const auto &[field, value] :
         {Case{&Request::plannedDurationSeconds, 2'147'483'648}, Case{&Request::actualDurationSeconds, -2'147'483'649},
          Case{&Request::cycleIndex, 32'768}}) {
        auto wide = request(1);
        wide.*field = value;
        EXPECT_DEATH(insert(wide), "does not fit");
    }
    EXPECT_DEATH(m_repository->prune(std::numeric_limits<qint64>::min()), "overflow");
}

TEST_F(SessionRepositoryTests, failuresAreLoggedAndSwallowed)
{
    executeRaw("DROP TABLE PomodoroSessionRecord");
    QSignalSpy saved(m_repository.get(), &SessionRepository::didSave);
    insert(request(1));
    m_repository->prune(1);
    m_stack.save();
    EXPECT_EQ(m_repository->completedWorkCount(), 0);
    EXPECT_TRUE(m_repository->allSessions().empty());
    EXPECT_EQ(m_repository->earliestSessionDate(), std::nullopt);
    const QStringList errors = takeErrors();
    ASSERT_EQ(errors.size(), 5);
    EXPECT_TRUE(errors[0].startsWith(QStringLiteral("SessionRepository: Failed to insert session: ")));
    EXPECT_TRUE(errors[1].startsWith(QStringLiteral("SessionRepository: Failed to prune sessions: ")));
    EXPECT_TRUE(errors[2].contains(QStringLiteral("no such table")));
    QCoreApplication::processEvents();
    EXPECT_EQ(saved.count(), 0);
}
