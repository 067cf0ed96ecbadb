#include "Fakes/ServicesFixture.h"
#include "Statistics/StatsCSVExporter.h"
#include "Statistics/StatsCSVReader.h"

#include <gtest/gtest.h>
#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <random>

using namespace tomcatto;

namespace {

constexpr auto header = "Type,Duration,Status,StartedAt\n";
constexpr auto goodLine = "Work,25:00,Completed,2025-03-04T08:15:00Z\n";

class HistoryImporterTest : public testing::Test, public ServicesFixture
{
protected:
    void write(const QByteArray &bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    /// How many phases were added, or why none.
    static QString importInto(AppDependencies &services, const QString &file)
    {
        QEventLoop waiting;
        QString outcome;
        services.historyImporter.importFile(file, [&](const HistoryImporter::Result &result) {
            outcome = result ? QStringLiteral("%1 of %2").arg(result->added).arg(result->all) : result.error();
            waiting.quit();
        });
        waiting.exec();
        return outcome;
    }
    QString imported(const QByteArray &bytes)
    {
        write(bytes);
        return importInto(dependencies, path);
    }
    static QByteArray exported(const AppDependencies &services)
    {
        const QString file = services.coreDataStack.storePath() + QStringLiteral(".csv");
        EXPECT_TRUE(exportRange(services.statsAggregator, StatsRange::allTime, file));
        QFile text(file);
        return text.open(QIODevice::ReadOnly) ? text.readAll() : QByteArray();
    }

    const QString path = folder.filePath(QStringLiteral("in.csv"));
};

}

TEST_F(HistoryImporterTest, AnExportComesBackByteByByte)
{
    const unsigned seed = qEnvironmentVariableIsSet("TOMCATTO_SEED") ? qEnvironmentVariableIntValue("TOMCATTO_SEED")
                                                                     : std::random_device()();
    SCOPED_TRACE("TOMCATTO_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const std::array phases{"work", "shortBreak", "longBreak", "nap", ""};
    // Many begin within one second, and many are alike.
    for (int row = 0; row < 200; ++row) {
        const double start = secondsSince1970(wallClock.now()) - 3'000 + below(60) * 0.25;
        ASSERT_TRUE(dependencies.historyEditor.restore(
            {identifiers.next(), QString::fromLatin1(phases.at(static_cast<std::size_t>(below(5)))),
             dateFromSeconds(start), std::nullopt, 7, below(2) * 5'999 + below(3), 3, below(2) == 0, below(2) == 0}));
    }
    const QByteArray text = exported(dependencies);
    EXPECT_EQ(text.count('\n'), 201);
    ServicesFixture other;
    write(text);
    EXPECT_EQ(importInto(other.dependencies, path), QStringLiteral("200 of 200"));
    EXPECT_EQ(exported(other.dependencies), text);
    for (AppDependencies *const services : {&dependencies, &other.dependencies})
        EXPECT_EQ(importInto(*services, path), QStringLiteral("0 of 200")) << "all are there, under whatever name";
    const auto some = other.dependencies.sessionRepository.allSessions();
    for (const std::size_t row : {3U, 77U, 150U})
        ASSERT_TRUE(other.dependencies.historyEditor.remove(some.at(row).id).value());
    EXPECT_EQ(importInto(other.dependencies, path), QStringLiteral("3 of 200"));
    EXPECT_EQ(exported(other.dependencies).count('\n'), 201);
}

TEST_F(HistoryImporterTest, AddsWhatTheFileSays)
{
    EXPECT_EQ(dependencies.statsAggregator.todayCount(), 0);
    const QString day = toIso8601(wallClock.now()).left(10);
    const QByteArray line = QStringLiteral("Work,100:01,Completed,%1T00:00:07Z").arg(day).toLatin1();
    EXPECT_EQ(imported(header + line + "\r\n" + line), QStringLiteral("2 of 2"));
    const auto records = dependencies.sessionRepository.allSessions();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_NE(records[0].id, records[1].id);
    const Date start =
        dateFromSeconds(secondsSince1970(dependencies.statsAggregator.interval(StatsRange::today).start)) + Seconds(7);
    const PomodoroSessionRecord expected{
        records[0].id, QStringLiteral("work"), start, start + Seconds(6'001), 6'001, 6'001, 0, true, false};
    EXPECT_EQ(records[0], expected);
    QCoreApplication::processEvents();
    EXPECT_EQ(dependencies.statsAggregator.todayCount(), 2);
}

TEST_F(HistoryImporterTest, RefusesEverythingElseWhole)
{
    const QByteArray good = QByteArray(header) + goodLine;
    const auto row = [](const char *text) { return QByteArray(header) + text; };
    struct Case
    {
        QByteArray bytes;
        int line;
        const char *reason;
    };
    for (const auto &[bytes, line, reason] : std::vector<Case>{
             {"", 1, "header"},
             {"\xef\xbb\xbf" + good, 1, "header"},
             {QByteArray(1 << 20, '\0'), 1, "too long"},
             {good + QByteArray(1 << 20, 'x'), 3, "too long"},
             {good + "\n", 3, "four fields"},
             {good + goodLine + "Work,25:00,Completed\n" + goodLine, 4, "four fields"},
             {row("Work,25:00,Completed,2025-03-04T08:15:00Z,"), 2, "four fields"},
             {row("work,25:00,Completed,2025-03-04T08:15:00Z"), 2, "type"},
             {row("Work") + '\0' + ",25:00,Completed,2025-03-04T08:15:00Z", 2, "type"},
             {row("Work,5:00,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,005:00,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,-5:00,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,25:60,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,35791394:08,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,99999999999999999999:00,Completed,2025-03-04T08:15:00Z"), 2, "duration"},
             {row("Work,25:00,,2025-03-04T08:15:00Z"), 2, "status"},
             {row("Work,25:00,Completed,2025-02-29T08:15:00Z"), 2, "start"},
             {row("Work,25:00,Completed,2025-03-04T24:00:00Z"), 2, "start"},
             {row("Work,25:00,Completed,2025-03-04 08:15:00Z"), 2, "start"},
             {row("Work,25:00,Completed,0000-03-04T08:15:00Z"), 2, "start"},
         }) {
        const QString outcome = imported(bytes);
        EXPECT_TRUE(outcome.startsWith(QStringLiteral("%1, line %2: ").arg(path).arg(line)) &&
                    outcome.contains(QString::fromLatin1(reason)))
            << reason << ": " << outcome.toStdString();
    }
    for (const QString &file : {folder.filePath(QStringLiteral("none")), folder.path(), QStringLiteral("/dev/zero")})
        EXPECT_TRUE(importInto(dependencies, file).startsWith(file + QStringLiteral(": ")));
    ASSERT_TRUE(QFile::resize(path, StatsCSVReader::largestFile + 1));
    EXPECT_TRUE(importInto(dependencies, path).contains(QStringLiteral("larger")));
    EXPECT_TRUE(dependencies.sessionRepository.allSessions().empty()) << "nothing of any of them";
    EXPECT_EQ(imported(row("Unknown,35791394:07,Skipped,9999-12-31T23:59:59Z\nWork,00:00,Interrupted,0001-01-01T00:00:"
                           "00Z")),
              QStringLiteral("2 of 2"));
}
