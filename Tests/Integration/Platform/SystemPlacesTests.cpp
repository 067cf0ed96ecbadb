#include "Fakes/CapturedLog.h"
#include "Platform/Freedesktop/FileInstanceLock.h"
#include "Platform/Freedesktop/SystemLogSink.h"
#include "Platform/Portable/ApplicationDirectories.h"

#include <gtest/gtest.h>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace tomcatto;

TEST(ApplicationDirectoriesTests, SocketsGoToAPrivateFolderWhereTheirPlaceIsMissingOrTooLong)
{
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder.path().toUtf8());
    const QString deep = folder.path() + QLatin1Char('/') + QString(90, QLatin1Char('d'));
    ASSERT_TRUE(QDir().mkpath(deep));
    for (const QString &runtime : {QString(), deep}) {
        qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
        const QString socket = ApplicationDirectories().controlSocket();
        const QFileInfo place(QFileInfo(socket).path());
        EXPECT_TRUE(place.path() == folder.path() && socket.size() < 104) << socket.toStdString();
        EXPECT_FALSE(place.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
        EXPECT_EQ(ApplicationDirectories().controlSocket(), socket) << "every process finds the same";
    }
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

TEST(InstanceLockTests, IsHeldByOneProcessUntilThatEndsHoweverItEnds)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made/for it/lock"));
    QProcess process;
    process.start(QStringLiteral(PLATFORM_TEST_PROCESS), {QStringLiteral("lock"), path});
    ASSERT_TRUE(process.waitForReadyRead());
    ASSERT_EQ(process.readLine(), "taken\n");
    FileInstanceLock lock(path, folder.filePath(QStringLiteral("fallback")));
    EXPECT_EQ(lock.tryTake(), InstanceLockResult::held);
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(lock.tryTake(), InstanceLockResult::taken);
    lock.release();
    FileInstanceLock other(path, path);
    EXPECT_EQ(other.tryTake(), InstanceLockResult::taken);
    EXPECT_EQ(lock.tryTake(), InstanceLockResult::held);
    const CapturedLog log;
    const QString impossible = QStringLiteral("/dev/null/lock");
    EXPECT_EQ(FileInstanceLock(impossible, path).tryTake(), InstanceLockResult::held);
    EXPECT_EQ(log.count(LogLevel::error), 1);
    EXPECT_EQ(FileInstanceLock(impossible, impossible).tryTake(), InstanceLockResult::unavailable);
}

TEST(SystemLogSinkTests, SendsFieldsToTheJournalAndCopiesSeriousLines)
{
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("journal")).toUtf8();
    sockaddr_un address{AF_UNIX, {}};
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int journal = ::socket(AF_UNIX, SOCK_DGRAM, 0);
    ASSERT_EQ(::bind(journal, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    QFile copies(folder.filePath(QStringLiteral("copies")));
    ASSERT_TRUE(copies.open(QIODevice::ReadWrite));
    const SystemLogSink sink(path, copies.handle());
    sink.setStandardErrorLevel(LogLevel::error);
    const auto journaled = [&](LogLevel level, const QString &message) {
        sink(level, QStringLiteral("Store"), message);
        char bytes[4096] = {};
        return QByteArray(bytes, ::read(journal, bytes, sizeof bytes));
    };
    const QByteArray rest =
        "SYSLOG_IDENTIFIER=tomcatto\nTOMCATTO_SUBSYSTEM=studio.quillbay.Tomcatto\nTOMCATTO_CATEGORY=Store\n";
    EXPECT_EQ(journaled(LogLevel::info, QStringLiteral("h\u00e9")), "MESSAGE=h\xc3\xa9\nPRIORITY=6\n" + rest);
    EXPECT_EQ(journaled(LogLevel::error, QStringLiteral("a\nb")),
              QByteArray("MESSAGE\n\3\0\0\0\0\0\0\0a\nb\nPRIORITY=3\n", 31) + rest);
    EXPECT_EQ(journaled(LogLevel::debug, QString(1'000'000, QLatin1Char('x'))).size(), 4096) << "cut, not lost";
    ::close(journal);
    sink(LogLevel::fault, QStringLiteral("Store"), QStringLiteral("without a journal"));
    copies.seek(0);
    EXPECT_EQ(copies.readLine().mid(23), "Z error Store: a\\nb\n");
    EXPECT_EQ(copies.readLine().mid(23), "Z fault Store: without a journal\n");
}
