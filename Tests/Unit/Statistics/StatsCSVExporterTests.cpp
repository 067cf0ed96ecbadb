#include "Statistics/StatsCSVExporter.h"

#include <gtest/gtest.h>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace tomcatto;

namespace {

using Sessions = std::vector<PomodoroSessionRecord>;

PomodoroSessionRecord record(const char *phase, double startedAt, qint32 seconds, bool wasCompleted, bool wasSkipped)
{
    PomodoroSessionRecord made;
    made.phase = QString::fromLatin1(phase);
    made.startedAt = dateFromSeconds(startedAt);
    made.actualDurationSeconds = seconds;
    made.wasCompleted = wasCompleted;
    made.wasSkipped = wasSkipped;
    return made;
}

class StatsCSVExporterTest : public testing::Test
{
protected:
    [[nodiscard]] QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("out.csv"));
};

}

TEST_F(StatsCSVExporterTest, WritesALineForEachRecordWithAStart)
{
    ASSERT_TRUE(StatsCSVExporter::write(Sessions{}, path));
    EXPECT_EQ(content(), "Type,Duration,Status,StartedAt\n");
    PomodoroSessionRecord withoutStart;
    ASSERT_TRUE(StatsCSVExporter::write(
        {record("work", 1'741'076'100, 1500, true, false), record("shortBreak", 1'741'076'099.999, 59, true, true),
         withoutStart, record("longBreak", 951'868'799, 0, false, true), // a leap day's last second
         record("pause", -0.5, 6000, false, false), record("", -62'135'596'800, 100'000'000, false, false),
         record("Work", 253'402'300'800, -90, false, false)},
        path));
    EXPECT_EQ(content(), "Type,Duration,Status,StartedAt\n"
                         "Work,25:00,Completed,2025-03-04T08:15:00Z\n"
                         "Short Break,00:59,Completed,2025-03-04T08:14:59Z\n"
                         "Long Break,00:00,Skipped,2000-02-29T23:59:59Z\n"
                         "Unknown,100:00,Interrupted,1969-12-31T23:59:59Z\n"
                         "Unknown,1666666:40,Interrupted,0001-01-01T00:00:00Z\n"
                         "Unknown,-1:-30,Interrupted,10000-01-01T00:00:00Z\n");
}

TEST_F(StatsCSVExporterTest, KeepsTheEarlierFileWhereAnythingFails)
{
    ASSERT_TRUE(StatsCSVExporter::write(Sessions{record("work", 0, 60, true, false)}, path));
    const QByteArray earlier = content();
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path, link));
    const auto unread = [](const auto &visit) {
        for (int row = 0; row < 10'000; ++row)
            visit(record("work", row, 60, true, false));
        return false;
    };
    for (const QString &name : {path, link})
        EXPECT_EQ(StatsCSVExporter::write(unread, name).error(), StatsCSVExporter::unreadText());
    EXPECT_EQ(content(), earlier);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2) << "no pieces";
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(StatsCSVExporter::write(Sessions{}, link));
    EXPECT_EQ(content(), "Type,Duration,Status,StartedAt\n");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_FALSE(QFile::permissions(path).testFlag(QFile::ReadOther));
    EXPECT_EQ(StatsCSVExporter::write(Sessions{}, folder.path()).error(),
              folder.path() + QStringLiteral(": Filename refers to a directory"));
    EXPECT_EQ(StatsCSVExporter::write(Sessions{}, QStringLiteral("/dev/full")).error(),
              QStringLiteral("/dev/full: No space left on device"));
}
