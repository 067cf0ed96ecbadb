#include "Platform/Posix/KeyDecoder.h"
#include "Platform/Posix/UnixOutput.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <QtTest/QTest>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

using namespace tomcatto;

namespace {

/// Starts the test process as a shell on a terminal of its own with 97 columns.
pid_t startShell(int &master)
{
    const winsize size{24, 97, 0, 0};
    const pid_t process = ::forkpty(&master, nullptr, nullptr, &size);
    if (process == 0)
        ::execl(PLATFORM_TEST_PROCESS, PLATFORM_TEST_PROCESS, "shell", nullptr);
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
    // Each input and what is shown next; an echo would come before it.
    const std::vector<std::pair<QByteArray, QByteArray>> starts{{"", "<interactive 1, columns 97>"},
                                                                {"s", "<key 115>"},
                                                                {"\x1a", "<stopped, echo on>"},
                                                                {"\n", "<key 10>"},
                                                                {"p", "<key 112>"},
                                                                {"", "<stopped, echo off>"},
                                                                {"\n", "<key 10>"},
                                                                {"s", "<key 115>"}};
    const std::vector<std::pair<QByteArray, QByteArray>> ends[] = {
        {{"q", "<key 113>"}, {"", "<ended 0, echo on>"}},
        {{"f", "<key 102>"}, {"", "tomcatto: failed>"}, {"", "<ended 4, echo on>"}}};
    for (const auto &end : ends) {
        int master = -1;
        const pid_t shell = startShell(master);
        for (const auto &turns : {starts, end}) {
            for (const auto &[input, output] : turns) {
                EXPECT_EQ(::write(master, input.constData(), size_t(input.size())), input.size());
                EXPECT_EQ(shown(master).replace("^Z", ""), output);
            }
        }
        ::close(master);
        ::waitpid(shell, nullptr, 0);
    }
}

TEST(TerminalTests, WhatAStoppedReaderDoesNotTakeFollowsButForLinesDrawnOver)
{
    int pipeEnds[2] = {};
    int terminalEnds[2] = {};
    ASSERT_EQ(::pipe(pipeEnds) + ::openpty(&terminalEnds[0], &terminalEnds[1], nullptr, nullptr, nullptr), 0);
    // As Ctrl-S does.
    ASSERT_EQ(::tcflow(terminalEnds[1], TCOOFF), 0);
    UnixOutput lines(pipeEnds[1]);
    UnixOutput drawing(terminalEnds[1]);
    for (int number = 0; number < 10'000; ++number)
        lines.write(QByteArray::number(number).rightJustified(19) + '\n');
    for (const char *text : {"line\n", "\rold", "\rnew>"})
        drawing.write(text);
    QByteArray read;
    for (char bytes[4096]; read.size() < 200'000; QTest::qWait(0))
        read.append(bytes, ::read(pipeEnds[0], bytes, sizeof bytes));
    EXPECT_TRUE(read.endsWith("\n               9999\n") && read.size() == 200'000);
    ::tcflow(terminalEnds[1], TCOON);
    QTest::qWait(20);
    EXPECT_EQ(shown(terminalEnds[0]), "line\r\n\rnew>");
}
