#include "Fakes/ManualRunLoop.h"
#include "Fakes/ManualWallClock.h"
#include "Foundation/FatalError.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Persistence/StoreFollower.h"
#include "Platform/Qt/ToolkitFileWatch.h"
#include "StoreFolder.h"

#include <cstdlib>
#include <latch>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace tomcatto;
using testing::ExitedWithCode;

class CoreDataStackTests : public StoreFolder
{
protected:
    /// Opens the store with the log's faults on standard error; used where the process ends.
    static void open(const std::optional<QString> &supportDirectory)
    {
        setLogSink([](LogLevel level, const QString &category, const QString &message) {
            if (level == LogLevel::fault)
                std::fprintf(stderr, "%s: %s\n", qPrintable(category), qPrintable(message));
        });
        const CoreDataStack stack(supportDirectory);
    }
    void expectRefused(const char *reason)
    {
        const QByteArray before = storeBytes();
        const auto pattern =
            QStringLiteral("CoreData: Failed to load persistent store: .*Tomcatto.sqlite: .*%1.*"
                           "tomcatto: Unrecoverable Core Data error: .*%1.*, [{]path: .*code: [0-9]+[}]")
                .arg(QLatin1String(reason));
        EXPECT_EXIT(open(directory()), ExitedWithCode(storeFailureStatus), qPrintable(pattern));
        EXPECT_EQ(storeBytes(), before) << reason;
    }
    static void insertOne(SessionRepository &repository, InsertMode mode = InsertMode::synchronous)
    {
        PomodoroSessionInsertRequest request;
        request.phase = PomodoroPhase::working;
        request.wasCompleted = true;
        repository.insert(request, mode);
    }
    [[nodiscard]] bool mountMemory(const QString &options)
    {
        const auto command = QStringLiteral("mount -t tmpfs -o %1 tmpfs %2").arg(options, directory());
        m_isMounted = std::system(qPrintable(command)) == 0 || m_isMounted;
        return m_isMounted;
    }
    void TearDown() override
    {
        EXPECT_TRUE(!m_isMounted || std::system(qPrintable(QStringLiteral("umount ") + directory())) == 0);
    }

    ManualWallClock m_clock;
    bool m_isMounted = false;
};

TEST_F(CoreDataStackTests, endsTheProcessWithoutADirectoryForTheStore)
{
    EXPECT_EXIT(open(std::nullopt), ExitedWithCode(4), "tomcatto: Application Support directory is unavailable\n$");
    QFile file(directory() + QStringLiteral("/file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EXIT(open(file.fileName()), ExitedWithCode(4),
                "tomcatto: Unable to create Application Support subdirectory: .*/file/Tomcatto: Not a directory\n$");
    const CoreDataStack stack(directory() + QStringLiteral("/made/on/the/way"));
    EXPECT_TRUE(QFile::exists(stack.storePath()));
}

TEST_F(CoreDataStackTests, refusesAFileThatItCannotUseAndLeavesItAsItIs)
{
    const auto write = [this](const QByteArray &bytes) {
        QFile file(storePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    executeRaw("PRAGMA user_version = 7; PRAGMA application_id = 0x546f6d63; CREATE TABLE later (x)");
    expectRefused("has version 7");
    executeRaw("PRAGMA user_version = 1");
    expectRefused("no such table: PomodoroSessionRecord");
    executeRaw("PRAGMA application_id = 99");
    expectRefused("database of another program");
    executeRaw("PRAGMA application_id = 0; PRAGMA user_version = 0");
    expectRefused("database of another program");
    write(storeBytes().replace(100, 400, QByteArray(400, '\x5a')));
    expectRefused("malformed");
    write("These are notes and no database. " + QByteArray(4'000, '-'));
    expectRefused("file is not a database");
    ASSERT_TRUE(QFile::remove(storePath()) && QDir().mkdir(storePath()));
    expectRefused("unable to open");
}

TEST_F(CoreDataStackTests, refusesAFileThatAnotherProgramKeepsLocked)
{
    SQLite::Database holder = openRaw();
    holder.exec("CREATE TABLE PomodoroSessionRecord (id); BEGIN EXCLUSIVE");
    expectRefused("database is locked");
}

TEST_F(CoreDataStackTests, severalProcessesMayStartAndWriteAtOnce)
{
    constexpr int writers = 4;
    constexpr int records = 25;
    std::latch start(writers);
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            CoreDataStack stack(directory());
            SessionRepository repository(stack, m_clock);
            for (int record = 0; record < records; ++record)
                insertOne(repository, record % 2 == 0 ? InsertMode::synchronous : InsertMode::asynchronous);
            stack.save();
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(takeErrors(), QStringList());
    EXPECT_EQ(readRaw("SELECT count(*) FROM PomodoroSessionRecord"), std::to_string(writers * records));
    EXPECT_FALSE(QFile::exists(storePath() + QStringLiteral("-wal"))) << "the last close copies the log";
}

TEST_F(CoreDataStackTests, readsDoNotWaitForAWriterAndWritesWaitForIt)
{
    CoreDataStack stack(directory());
    SessionRepository repository(stack, m_clock);
    SQLite::Database other = openRaw();
    other.exec("BEGIN IMMEDIATE; INSERT INTO PomodoroSessionRecord (phase, wasCompleted) VALUES ('work', 1)");
    insertOne(repository, InsertMode::asynchronous);
    EXPECT_EQ(repository.completedWorkCount(), 0);
    other.exec("COMMIT");
    stack.save();
    EXPECT_EQ(repository.completedWorkCount(), 2);
    EXPECT_EQ(takeErrors(), QStringList());
}

TEST_F(CoreDataStackTests, announcesWhatOthersWriteAndItsOwnOnlyOnce)
{
    CoreDataStack stack(directory());
    SessionRepository repository(stack, m_clock);
    insertOne(repository);
    const QSignalSpy saves(&repository, &SessionRepository::didSave);
    const QSignalSpy foreign(&stack, &CoreDataStack::othersDidWrite);
    ManualRunLoop runLoop;
    ToolkitFileWatch watch;
    const StoreFollower follower(stack, watch, runLoop);
    const auto ask = [&] {
        ASSERT_TRUE(QTest::qWaitFor([&runLoop] { return runLoop.activeTimers() > 0; }));
        runLoop.advance(std::chrono::milliseconds{200}, [](auto) {});
        stack.save();
        QCoreApplication::sendPostedEvents();
    };
    insertOne(repository);
    ask();
    EXPECT_EQ(foreign.size(), 0);
    EXPECT_EQ(saves.size(), 2);
    executeRaw("DELETE FROM PomodoroSessionRecord");
    ask();
    EXPECT_EQ(foreign.size(), 1);
    // A log that is cut back and begun anew; its cutting may be taken for a write.
    static_cast<void>(readRaw("PRAGMA wal_checkpoint(TRUNCATE)"));
    ask();
    const qsizetype before = foreign.size();
    executeRaw("INSERT INTO PomodoroSessionRecord (phase, wasCompleted) VALUES ('work', 1)");
    ask();
    EXPECT_EQ(foreign.size(), before + 1);
    EXPECT_EQ(repository.completedWorkCount(), 1);
}

TEST_F(CoreDataStackTests, aFullDiskLosesOnlyWhatDidNotFit)
{
    ASSERT_TRUE(mountMemory(QStringLiteral("size=400k"))) << "needs the right to mount";
    CoreDataStack stack(directory());
    SessionRepository repository(stack, m_clock);
    qint64 written = -1;
    QStringList errors;
    for (; errors.isEmpty() && written < 5'000; ++written) {
        insertOne(repository);
        errors = takeErrors();
    }
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.front().startsWith(QStringLiteral("SessionRepository: Failed to insert session: ")));
    EXPECT_TRUE(errors.front().contains(QStringLiteral("database or disk is full"))) << qPrintable(errors.front());
    EXPECT_EQ(repository.completedWorkCount(), written);
    ASSERT_TRUE(mountMemory(QStringLiteral("remount,size=4m")));
    insertOne(repository);
    EXPECT_EQ(repository.completedWorkStamps().size(), static_cast<std::size_t>(written + 1));
    EXPECT_EQ(readRaw("PRAGMA integrity_check"), "ok");
}
