#include "Fakes/CapturedLog.h"
#include "Fakes/ManualFact.h"
#include "Fakes/ManualRunLoop.h"
#include "Platform/Linux/CameraInUse.h"
#include "Platform/Ports/AnyFactSource.h"
#include "Platform/Posix/CompanionFact.h"

#include <csignal>
#include <gmock/gmock.h>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;
using namespace std::chrono_literals;
using enum Fact;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
}

}

TEST(AnyFactSource, IsTheStrongestOfAllForEveryWatcherAndLooksOnlyMeanwhile)
{
    ManualFact first;
    ManualFact second;
    AnyFactSource any({first, second});
    std::vector<Fact> told;
    std::vector<Fact> late;
    Cancellable watch = any.watch([&told](Fact fact) { told.push_back(fact); });
    const auto takeTurns = [] {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    };
    const auto tell = [&takeTurns](ManualFact &source, Fact fact) {
        source.tell(fact);
        takeTurns();
    };
    for (const auto &[source, fact] : {std::pair(&first, untold),
                                       {&second, untold},
                                       {&first, no},
                                       {&second, unknown},
                                       {&second, yes},
                                       {&first, yes},
                                       {&second, untold}})
        tell(*source, fact);
    EXPECT_THAT(told, testing::ElementsAre(untold, no, yes));

    Cancellable other;
    other = any.watch([&](Fact fact) {
        late.push_back(fact);
        other.cancel();
    });
    EXPECT_THAT(late, testing::IsEmpty());
    tell(first, no);
    EXPECT_THAT(late, testing::ElementsAre(yes));
    EXPECT_THAT(told, testing::ElementsAre(untold, no, yes, no));

    // What was on its way to one who has let go does not come.
    tell(second, no);
    second.tell(yes);
    watch.cancel();
    takeTurns();
    EXPECT_EQ(told.back(), no);
    EXPECT_FALSE(first.isWatched || second.isWatched);
    watch = any.watch([&told](Fact fact) { told.push_back(fact); });
    tell(second, yes);
    EXPECT_EQ(told.back(), yes);
}

TEST(CompanionFact, StartsAnewWhatHasEndedLessAndLessOftenAndEndsItWithTheLastWatcher)
{
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("program"));
    const QString started = folder.filePath(QStringLiteral("started"));
    write(program, "#!/bin/sh\necho $$ >> " + started.toUtf8() + "\necho no\necho yes\nread line\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    ManualRunLoop runLoop;
    CompanionFact companion(program, runLoop);
    std::vector<Fact> told;
    const CapturedLog log;
    Cancellable watch = companion.watch([&told](Fact fact) { told.push_back(fact); });
    const auto process = [&started] { return contentOf(started).trimmed().split('\n').last().toInt(); };
    // The last one has run for a minute before it ends.
    const std::chrono::milliseconds rests[] = {1s, 2s, 4s, 8s, 1s};
    for (int each = 1; each <= 5; ++each) {
        ASSERT_TRUE(QTest::qWaitFor([&told] { return !told.empty() && told.back() == yes; }));
        runLoop.advance(each == 5 ? 60s : 59s, [](auto) {});
        ASSERT_EQ(::kill(process(), SIGKILL), 0);
        ASSERT_TRUE(QTest::qWaitFor([&told] { return told.back() == untold; }));
        runLoop.advance(rests[each - 1] - 1ms, [](auto) {});
        EXPECT_EQ(runLoop.activeTimers(), 1);
        EXPECT_EQ(contentOf(started).count('\n'), each);
        told.clear();
        runLoop.advance(1ms, [](auto) {});
    }
    ASSERT_TRUE(QTest::qWaitFor([&told] { return told == std::vector{no, yes}; }));
    EXPECT_EQ(log.count(LogLevel::error), 5);
    watch.cancel();
    EXPECT_TRUE(QTest::qWaitFor([&process] { return ::kill(process(), 0) != 0; }));
    EXPECT_EQ(runLoop.activeTimers(), 0);
}

TEST(CameraInUse, IsToldOfAnotherProgramThatKeepsOneOpen)
{
    const QTemporaryDir folder;
    const QString camera = folder.filePath(QStringLiteral("video0"));
    ManualRunLoop runLoop;
    CameraInUse cameras(runLoop, folder.path().toStdString());
    Fact told = unknown;
    const Cancellable watch = cameras.watch([&told](Fact fact) { told = fact; });
    const auto becomes = [&](Fact fact) {
        const bool isNoticed = QTest::qWaitFor([&runLoop] { return runLoop.activeTimers() == 1; });
        runLoop.advance(1s, [](auto) {});
        return isNoticed && QTest::qWaitFor([&told, fact] { return told == fact; });
    };
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told == untold; }));
    write(folder.filePath(QStringLiteral("radio0")), "not a camera");
    QCoreApplication::processEvents();
    EXPECT_EQ(runLoop.activeTimers(), 0);
    write(camera, "plugged in");
    EXPECT_TRUE(becomes(no));

    // Ours: this process, and one that it has started.
    QFile own(camera);
    ASSERT_TRUE(own.open(QFile::ReadOnly));
    QProcess child;
    QProcess stranger;
    for (QProcess *holder : {&child, &stranger}) {
        holder->setStandardInputFile(camera);
        holder->setProgram(QStringLiteral("sleep"));
        holder->setArguments({QStringLiteral("1000")});
    }
    child.start();
    ASSERT_TRUE(child.waitForStarted());
    told = unknown;
    EXPECT_TRUE(QTest::qWaitFor([&runLoop] { return runLoop.activeTimers() == 1; }));
    runLoop.advance(1s, [](auto) {});
    QCoreApplication::processEvents();
    EXPECT_EQ(told, unknown);

    qint64 process = 0;
    ASSERT_TRUE(stranger.startDetached(&process));
    EXPECT_TRUE(becomes(yes));
    ::kill(static_cast<pid_t>(process), SIGKILL);
    EXPECT_TRUE(becomes(no));
    QFile::remove(camera);
    EXPECT_TRUE(becomes(untold));
    child.kill();
    child.waitForFinished();
}
