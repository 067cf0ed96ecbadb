#include "Fakes/ManualWallClock.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Persistence/StoreReplacement.h"
#include "StoreFolder.h"

#include <QtTest/QSignalSpy>

using namespace tomcatto;

class StoreCopyTests : public StoreFolder
{
protected:
    StoreCopyTests() { insertOne(); }

    void insertOne()
    {
        PomodoroSessionInsertRequest request;
        request.phase = PomodoroPhase::working;
        request.wasCompleted = true;
        m_repository.insert(request, InsertMode::synchronous);
    }
    [[nodiscard]] QString path(const char *name) const { return directory() + u'/' + QLatin1String(name); }
    [[nodiscard]] QString file(const char *name, const QByteArray &bytes) const
    {
        QFile made(path(name));
        return made.open(QIODevice::WriteOnly) && made.write(bytes) == bytes.size() ? made.fileName() : QString();
    }
    [[nodiscard]] static int phasesIn(const QString &file)
    {
        return SQLite::Database(file.toStdString()).execAndGet("SELECT count(*) FROM PomodoroSessionRecord");
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(directory() + QStringLiteral("/Tomcatto")).entryList(QDir::Files);
    }
    /// The way of the commands.
    [[nodiscard]] StoreCopyResult<QString> restore(const QString &copy)
    {
        const auto prepared = storeReplacement::prepare(copy, storePath());
        if (!prepared)
            return prepared;
        const auto kept = m_stack.replaceStore(*prepared, QStringLiteral("kept"));
        QFile::remove(*prepared);
        return kept;
    }

    ManualWallClock m_clock;
    CoreDataStack m_stack{directory()};
    SessionRepository m_repository{m_stack, m_clock};
};

TEST_F(StoreCopyTests, copiesWhatIsInTheLogAndReplacesOnlyCopies)
{
    const QString copy = path("copy");
    ASSERT_TRUE(backUpStore(storePath(), copy));
    insertOne();
    ASSERT_TRUE(QFile::link(copy, path("link")));
    ASSERT_TRUE(backUpStore(storePath(), path("link")));
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    EXPECT_EQ(phasesIn(copy), 2);
    EXPECT_EQ(SQLite::Database(copy.toStdString()).execAndGet("PRAGMA journal_mode").getString(), "delete");
    ASSERT_TRUE(QFile::link(storePath(), path("itself")) && QFile::link(path("nothing"), path("nowhere")));
    ASSERT_TRUE(QDir().mkdir(path("folder")));
    const QString notes = file("notes", "not a store");
    const QByteArray before = storeBytes();
    for (const QString &target : {path("itself"), path("nowhere"), path("folder"), notes, path("missing/copy"),
                                  storePath() + QStringLiteral("-wal"), QStringLiteral("/dev/null")}) {
        const auto refused = backUpStore(storePath(), target);
        ASSERT_FALSE(refused) << qPrintable(target);
        EXPECT_TRUE(refused.error().text.startsWith(target)) << qPrintable(refused.error().text);
        const bool isStore = target == path("itself") || target.endsWith(QStringLiteral("wal"));
        EXPECT_EQ(refused.error().kind == Refusal::Kind::usage, isStore) << qPrintable(target);
    }
    EXPECT_EQ(storeBytes(), before);
    EXPECT_EQ(QFileInfo(notes).size(), 11);
    EXPECT_EQ(QDir(directory()).entryList(QDir::Files).filter(QStringLiteral("copy")),
              QStringList{QStringLiteral("copy")});
}

TEST_F(StoreCopyTests, takesTheStoresPlaceWhileItIsInUse)
{
    const QString copy = path("copy");
    ASSERT_TRUE(backUpStore(storePath(), copy));
    insertOne();
    insertOne();
    EXPECT_EQ(m_repository.completedWorkCount(), 3);
    {
        const SQLite::Database other = openRaw();
        EXPECT_EQ(phasesIn(storePath()), 3);
        ASSERT_EQ(SQLite::Statement(other, "SELECT 1 FROM PomodoroSessionRecord").executeStep(), true);
        const auto refused = restore(copy);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().kind, Refusal::Kind::notApplicable);
        insertOne();
    }
    QCoreApplication::sendPostedEvents();
    const QSignalSpy saves(&m_repository, &SessionRepository::didSave);
    const quint64 rewrites = m_stack.rewrites();
    const auto kept = restore(copy);
    ASSERT_TRUE(kept) << qPrintable(kept.error().text);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(saves.size(), 1);
    EXPECT_EQ(phasesIn(*kept), 4);
    EXPECT_GT(m_stack.rewrites(), rewrites);
    insertOne();
    EXPECT_EQ(m_repository.completedWorkCount(), 2);
    EXPECT_EQ(readRaw("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(phasesIn(storePath()), 2);
    EXPECT_EQ(restore(copy), StoreCopyResult<QString>(path("Tomcatto/kept 2.sqlite")));
    EXPECT_EQ(phasesIn(*kept), 4);
    EXPECT_EQ(takeErrors(), QStringList());
}

TEST_F(StoreCopyTests, refusesWhatIsNotAWholeCopyAndTouchesNothing)
{
    ASSERT_TRUE(backUpStore(storePath(), path("copy")));
    QFile good(path("copy"));
    ASSERT_TRUE(good.open(QIODevice::ReadOnly));
    const QByteArray bytes = good.readAll();
    const auto changed = [&](const char *name, const char *sql) {
        const QString made = file(name, bytes);
        SQLite::Database(made.toStdString(), SQLite::OPEN_READWRITE).exec(sql);
        return made;
    };
    const std::pair<QString, const char *> cases[] = {
        {path("none"), "no such file"},
        {directory(), "folder"},
        {storePath(), "itself"},
        {file("empty", {}), "not a copy of the history"},
        {file("text", "These are notes. " + QByteArray(4'000, '-')), "file is not a database"},
        {file("short", bytes.first(bytes.size() / 2)), "malformed"},
        {file("holed", QByteArray(bytes).replace(4'096, 4'096, QByteArray(4'096, '\x5a'))), "btreeInitPage"},
        {changed("newer", "PRAGMA user_version = 7"), "version 7"},
        {changed("other", "PRAGMA application_id = 99"), "another program"},
        {changed("columns", "ALTER TABLE UserVideo DROP COLUMN localCopyPath"), "no such column"},
    };
    const QStringList before = files();
    for (const auto &[copy, reason] : cases) {
        const auto refused = restore(copy);
        ASSERT_FALSE(refused) << reason;
        EXPECT_TRUE(refused.error().text.startsWith(copy)) << qPrintable(refused.error().text);
        EXPECT_TRUE(refused.error().text.contains(QLatin1String(reason))) << qPrintable(refused.error().text);
    }
    EXPECT_EQ(files(), before);
    EXPECT_EQ(m_repository.completedWorkCount(), 1);
}

TEST_F(StoreCopyTests, keepsADamagedStoreWithItsLog)
{
    ASSERT_TRUE(backUpStore(storePath(), path("copy")));
    const QTemporaryDir elsewhere;
    const auto write = [&elsewhere](const char *name) {
        QFile made(elsewhere.filePath(QLatin1String(name)));
        return made.open(QIODevice::WriteOnly) && made.write(name) > 0;
    };
    ASSERT_TRUE(write("Tomcatto.sqlite") && write("Tomcatto.sqlite-wal"));
    const QString damaged = elsewhere.filePath(QStringLiteral("Tomcatto.sqlite"));
    const auto prepared = storeReplacement::prepare(path("copy"), damaged);
    ASSERT_TRUE(prepared);
    ASSERT_TRUE(storeReplacement::putInPlace(*prepared, damaged, QStringLiteral("kept")));
    EXPECT_EQ(phasesIn(damaged), 1);
    QFile log(elsewhere.filePath(QStringLiteral("kept.sqlite-wal")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll(), "Tomcatto.sqlite-wal");
}
