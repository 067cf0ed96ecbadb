#include "Platform/Freedesktop/KeyDecoder.h"
#include "Platform/Freedesktop/UnixProcessSignals.h"

#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <sys/wait.h>
#include <unistd.h>

using namespace tomcatto;

namespace {

/// Starts the test process on a terminal of its own with 97 columns.
pid_t startOnTerminal(int &master, const char *role, const QByteArray &argument)
{
    const winsize size{24, 97, 0, 0};
    const pid_t process = ::forkpty(&master, nullptr, nullptr, &size);
    if (process == 0)
        ::execl(PLATFORM_TEST_PROCESS, PLATFORM_TEST_PROCESS, role, argument.constData(), nullptr);
    return process;
}

/// What a terminal shows up to the next ">", or in 10 seconds.
QByteArray shown(int master)
{
    QByteArray text;
    pollfd input{master, POLLIN, 0};
    char byte = 0;
    while (!text.endsWith('>') && ::poll(&input, 1, 10'000) > 0 && ::read(master, &byte, 1) == 1)
        text += byte;
    return text.trimmed();
}

}

TEST(TerminalTests, DecodesKeysAndLeavesEscapeSequencesOut)
{
    const std::pair<std::vector<QByteArray>, QString> cases[] = {
        {{"s q", "\xc3", "\xa9"}, QStringLiteral("s q\u00e9")},
        {{"a\x1b[Ab\x1b[15~c\x1bOQd\x1b[[Ae\x1b[1;5bf\x1b\x1b[Dg"}, QStringLiteral("abcdefg")},
        {{"\x1b", "s"}, QStringLiteral("\x1bs")},
        {{"\x1b[", "3", "~x\x1bs"}, QStringLiteral("x")},
    };
    for (const auto &[pieces, keys] : cases) {
        KeyDecoder decoder;
        QString decoded;
        for (const QByteArray &piece : pieces)
            decoded += decoder.decode(piece);
        EXPECT_EQ(decoded, keys);
    }
}

TEST(TerminalTests, TakesSingleKeysAlsoAfterBeingStoppedAndRestoresTheTerminal)
{
    int master = -1;
    const pid_t shell = startOnTerminal(master, "shell", "");
    // Each input and what is shown next; an echo would come before it.
    const std::pair<QByteArray, QByteArray> turns[] = {{"", "<interactive 1, columns 97>"},
                                                       {"s", "<key 115>"},
                                                       {"\x1a", "<stopped, echo on>"},
                                                       {"\n", "<key 10>"},
                                                       {"q", "<key 113>"},
                                                       {"", "<ended 0, echo on>"}};
    for (const auto &[input, output] : turns) {
        EXPECT_EQ(::write(master, input.constData(), size_t(input.size())), input.size());
        EXPECT_EQ(shown(master).replace("^Z", ""), output);
    }
    ::close(master);
    ::waitpid(shell, nullptr, 0);
}

TEST(TerminalTests, AClosedTerminalIsANormalEndAndCostsNoProcessorTime)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("ended")));
    int master = -1;
    const pid_t process = startOnTerminal(master, "keys", QFile::encodeName(file.fileName()));
    EXPECT_EQ(shown(master), "<interactive 1, columns 97>");
    ::close(master);
    ::waitpid(process, nullptr, 0);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "the end was not orderly";
    EXPECT_LT(file.readAll().toInt(), 150) << "of 300 milliseconds";
}

TEST(ProcessSignalsTests, TheFirstRequestToEndIsDeliveredAndTheSecondEndsHard)
{
    UnixProcessSignals signals;
    QByteArray events;
    const Cancellable end = signals.onTerminationRequest([&events] { events += "end "; });
    const Cancellable change = signals.onTerminalChanged([&events] { events += "change "; });
    for (const int signalNumber : {SIGWINCH, SIGCONT, SIGTERM, SIGHUP})
        ::raise(signalNumber);
    EXPECT_EQ(events, "") << "handlers run on the loop";
    QTest::qWait(20);
    EXPECT_EQ(events, "change end ");
    struct sigaction action = {};
    ::sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    ::signal(SIGHUP, SIG_DFL);
}
