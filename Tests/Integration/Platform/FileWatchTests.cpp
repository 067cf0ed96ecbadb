#include "Platform/Qt/ToolkitFileWatch.h"

#include <gtest/gtest.h>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;

TEST(FileWatchTests, StaysWithTheNameThroughEveryKindOfChange)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("watched"));
    const QString other = folder.filePath(QStringLiteral("other"));
    const auto write = [](const QString &path) {
        QFile target(path);
        return target.open(QIODevice::Append) && target.write("more") == 4;
    };
    int calls = 0;
    ToolkitFileWatch watch;
    const Cancellable watching = watch.watch({file}, [&calls] { ++calls; });
    const std::pair<const char *, std::function<bool()>> changes[] = {
        {"made", [&] { return write(file); }},
        {"written", [&] { return write(file); }},
        {"linked", [&] { return QFile::copy(file, other) && ::rename(qPrintable(other), qPrintable(file)) == 0; }},
        {"written after it was replaced", [&] { return write(file); }},
        {"removed", [&] { return QFile::remove(file); }},
        {"made anew", [&] { return write(file); }},
        {"written anew", [&] { return write(file); }},
    };
    for (const auto &[what, change] : changes) {
        // What came of the change before is over.
        while (QTest::qWaitFor([&calls] { return std::exchange(calls, 0) > 0; }, 50)) {
        }
        ASSERT_TRUE(change()) << what;
        EXPECT_TRUE(QTest::qWaitFor([&calls] { return calls > 0; })) << what;
    }
}
