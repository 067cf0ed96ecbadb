#include "Fakes/CapturedLog.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Linux/FileExchange.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/FileInstanceLock.h"

#include <gtest/gtest.h>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <sys/stat.h>
#include <unistd.h>

using namespace tomcatto;

TEST(ApplicationDirectoriesTests, WithoutAHomeOnlyLockAndSocketHaveAPlaceWhichIsPrivate)
{
    const QTemporaryDir folder;
    std::map<const char *, QByteArray> before;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        before[name] = qgetenv(name);
        qunsetenv(name);
    }
    qputenv("TMPDIR", folder.path().toUtf8());
    const ApplicationDirectories places;
    EXPECT_EQ(places.userDefaultsFile(), QString());
    EXPECT_EQ(places.applicationSupport(), std::nullopt);
    EXPECT_FALSE(AutostartLoginItem(QStringLiteral("/program"), AutostartLoginItem::userFolder()).registerItem());
    qputenv("XDG_RUNTIME_DIR", folder.filePath(QString(90, QLatin1Char('d'))).toUtf8());
    for (const QString &path : {places.instanceLockFile(), places.controlSocket()}) {
        const QFileInfo place(QFileInfo(path).path());
        EXPECT_TRUE(place.path() == folder.path() && path.size() < 104) << path.toStdString();
        EXPECT_FALSE(place.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
    }
    for (const auto &[name, value] : before)
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
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
    const QString closed = folder.filePath(QStringLiteral("closed/lock"));
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
    ASSERT_TRUE(geteuid() != 0 || seteuid(65'534) == 0);
    EXPECT_EQ(FileInstanceLock(closed, closed).tryTake(), InstanceLockResult::unavailable);
    ASSERT_TRUE(getuid() != 0 || seteuid(0) == 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0700), 0);
    EXPECT_TRUE(log.lastMessage().endsWith(QStringLiteral(": Permission denied")));
}

TEST(FileExchangeTests, TakesTheOthersPlaceAndLeavesItWhenItCannot)
{
    const QTemporaryDir folder;
    const QString part = folder.filePath(QStringLiteral("file.part"));
    const QString place = folder.filePath(QStringLiteral("file"));
    for (const QByteArray &text : {QByteArrayLiteral("first"), QByteArrayLiteral("second")}) {
        QFile file(part);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        EXPECT_FALSE(exchangeFile(part, place));
        QFile read(place);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly) && read.readAll() == text);
        EXPECT_FALSE(QFile::exists(part));
    }
    EXPECT_EQ(exchangeFile(part, place), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(QFile::exists(place));
}
