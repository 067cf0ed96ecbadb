#include "Control/ControlMessage.h"
#include "Control/ControlServer.h"
#include "Fakes/ManualRunLoop.h"
#include "Platform/Posix/UnixLocalSockets.h"

#include <gtest/gtest.h>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>
#include <QtTest/QTest>
#include <sys/socket.h>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

class ControlServerTest : public testing::Test
{
protected:
    ControlServerTest()
    {
        commands.add(QStringLiteral("echo"), [](const nlohmann::ordered_json &arguments) {
            return ControlReply{ExitStatus::done, {}, arguments};
        });
        commands.add(QStringLiteral("refuse"),
                     [](const auto &) { return controlReply(ExitStatus::notApplicable, QStringLiteral("not now")); });
    }
    /// Writes bytes to the socket and gives what comes back until the server hangs up.
    [[nodiscard]] QByteArray exchange(const QByteArray &bytes, bool isInputEnded = false)
    {
        QLocalSocket socket;
        socket.connectToServer(path);
        socket.write(bytes);
        socket.flush();
        if (isInputEnded)
            ::shutdown(static_cast<int>(socket.socketDescriptor()), SHUT_WR);
        QByteArray answer;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            answer += socket.readAll();
            return socket.state() == QLocalSocket::UnconnectedState && socket.bytesAvailable() == 0;
        }));
        return answer;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("t.sock"));
    CommandTable commands;
    UnixLocalSockets sockets;
    ManualRunLoop runLoop;
    ControlServer server{commands, sockets, runLoop, path, 3000ms};
};

}

TEST_F(ControlServerTest, AnswersAndRefusesInOneLine)
{
    ASSERT_EQ(server.listen(), ControlServer::ListenResult::listening);
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther), 0);
    struct Case
    {
        QByteArray request;
        int status;
    };
    const Case cases[] = {
        {"{\"command\":\"echo\",\"arguments\":{\"a\":1}}\n", 0},
        {"{\"command\":\"refuse\"}\n", 1},
        {"{\"command\":\"nothing\"}\n", 2},
        {"rubbish\n", 2},
        {"\n", 2},
        {"[1,2]\n", 2},
        {"{\"command\":7}\n", 2},
        {"{\"command\":\"echo\",\"arguments\":[]}\n", 2},
        {"{\"command\":\"echo\",\"follow\":\"yes\"}\n", 2},
        {"{\"command\":\"echo\",\"ticks\":1}\n", 2},
        {QByteArray("\xff\xfe\x00\n", 4), 2},
        {QByteArray(longestRequest + 10, 'x') + '\n', 2},
        {QByteArray(longestRequest + 10, 'x'), 2},
        {"{\"command\":\"echo\",\"arguments\":{\"a\":" + QByteArray(30'000, '[') + QByteArray(30'000, ']') + "}}\n", 2},
    };
    for (const Case &item : cases) {
        const QByteArray answer = exchange(item.request);
        EXPECT_EQ(answer.count('\n'), 1) << item.request.left(50).toStdString();
        const auto reply = decodedReply(answer);
        ASSERT_TRUE(reply) << answer.toStdString();
        EXPECT_EQ(static_cast<int>(reply->status), item.status) << item.request.left(50).toStdString();
    }
}

TEST_F(ControlServerTest, AnswersThoseWhoHaveStoppedWriting)
{
    ASSERT_EQ(server.listen(), ControlServer::ListenResult::listening);
    commands.addLater(QStringLiteral("later"), [this](const auto &, const CommandTable::Answer &answer) {
        QTimer::singleShot(100ms, &server, [answer] { answer(ControlReply{}); });
    });
    EXPECT_TRUE(exchange("{\"command\":\"echo\"}", true).contains("\"status\":0"));
    EXPECT_TRUE(exchange("{\"command\":\"later\"}", true).contains("\"status\":0"));
    EXPECT_TRUE(exchange("{\"comm", true).contains("\"status\":2")) << "at once, not when its time is up";
    EXPECT_EQ(exchange("", true), "") << "who asks nothing gets nothing";
}

TEST_F(ControlServerTest, SlowClientsHoldNobodyUp)
{
    ASSERT_EQ(server.listen(), ControlServer::ListenResult::listening);
    std::vector<std::unique_ptr<QLocalSocket>> slow;
    for (int count = 0; count < 100; ++count) {
        slow.push_back(std::make_unique<QLocalSocket>());
        slow.back()->connectToServer(path);
        slow.back()->write("{\"comm");
    }
    EXPECT_TRUE(exchange("{\"command\":\"echo\"}\n").contains("\"status\":0"));
    EXPECT_EQ(slow.front()->state(), QLocalSocket::UnconnectedState) << "too many wait, the oldest goes";
    runLoop.advance(2999ms, [](auto) {});
    EXPECT_TRUE(exchange("{\"command\":\"echo\"}\n").contains("\"status\":0"));
    EXPECT_EQ(slow.back()->state(), QLocalSocket::ConnectedState);
    runLoop.advance(1ms, [](auto) {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return slow.back()->state() == QLocalSocket::UnconnectedState; }));
    EXPECT_TRUE(slow.back()->readAll().contains("too long"));
}

TEST_F(ControlServerTest, FollowersGetEveryLineUntilTheyLeave)
{
    ASSERT_EQ(server.listen(), ControlServer::ListenResult::listening);
    QLocalSocket follower;
    follower.connectToServer(path);
    follower.write("{\"command\":\"echo\",\"follow\":true}\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.hasFollowers() && follower.canReadLine(); }));
    QLocalSocket ticking;
    ticking.connectToServer(path);
    ticking.write("{\"command\":\"echo\",\"follow\":true,\"ticks\":true}\n");
    EXPECT_FALSE(server.hasTickFollowers());
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.hasTickFollowers(); }));
    server.publish("one");
    server.publishTick("tick");
    server.publish("two");
    QByteArray withTicks;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (withTicks += ticking.readAll()).contains("two"); }));
    EXPECT_EQ(withTicks.count('\n'), 4);
    for (int second = 0; second < 1000; ++second)
        server.publishTick(std::string(1000, 't'));
    server.publish("three");
    EXPECT_TRUE(server.hasTickFollowers()) << "who reads nothing misses ticks, and is not let go for them";
    ticking.abort();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !server.hasTickFollowers(); }));
    QByteArray lines;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        lines += follower.readAll();
        return lines.count('\n') == 4;
    }));
    EXPECT_LT(lines.indexOf("one"), lines.indexOf("two"));
    EXPECT_FALSE(lines.contains("tick"));
    follower.abort();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !server.hasFollowers(); }));
}

TEST_F(ControlServerTest, TakesOverADeadFileNeverALiveOne)
{
    {
        // What a killed process leaves: a socket file that nobody listens behind.
        QLocalServer crashed;
        ASSERT_TRUE(crashed.listen(directory.filePath(QStringLiteral("other"))));
        ASSERT_TRUE(QFile::rename(directory.filePath(QStringLiteral("other")), path));
    }
    ASSERT_TRUE(QFile::exists(path));
    ASSERT_EQ(server.listen(), ControlServer::ListenResult::listening);
    ControlServer second(commands, sockets, runLoop, path);
    EXPECT_EQ(second.listen(), ControlServer::ListenResult::taken);
    EXPECT_TRUE(exchange("{\"command\":\"echo\"}\n").contains("\"status\":0")) << "the first goes on";
    ControlServer nowhere(commands, sockets, runLoop, QStringLiteral("/proc/no/such/place"));
    EXPECT_EQ(nowhere.listen(), ControlServer::ListenResult::failed);
}
