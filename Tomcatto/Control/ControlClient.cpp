#include "Control/ControlClient.h"

#include <algorithm>
#include <QtNetwork/QLocalSocket>

namespace tomcatto {

namespace {

constexpr int connectMilliseconds = 1000;
constexpr int answerMilliseconds = 5000;

ControlReply notRunning()
{
    return controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is not running. Start it with: tomcatto"));
}

ControlReply noAnswer(const QLocalSocket &socket)
{
    const bool isThere = socket.state() == QLocalSocket::ConnectedState;
    return controlReply(ExitStatus::failed, isThere ? QStringLiteral("Tomcatto is running but does not answer.")
                                                    : QStringLiteral("Tomcatto ended without an answer."));
}

bool sendRequest(QLocalSocket &socket, const QStringList &paths, const ControlRequest &request)
{
    const bool isConnected = std::ranges::any_of(paths, [&socket](const QString &path) {
        socket.connectToServer(path);
        return socket.waitForConnected(connectMilliseconds);
    });
    if (isConnected) {
        socket.write(encoded(request));
        socket.flush();
    }
    return isConnected;
}

std::optional<QByteArray> readLine(QLocalSocket &socket, int milliseconds)
{
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(milliseconds))
            return std::nullopt;
    }
    return socket.readLine();
}

ControlReply replyOf(const QByteArray &line)
{
    const auto reply = decodedReply(line);
    return reply ? *reply : controlReply(ExitStatus::failed, reply.error());
}

}

ControlClient::ControlClient(std::function<QStringList()> socketPaths)
    : m_socketPaths(std::move(socketPaths))
{
}

ControlReply ControlClient::send(const ControlRequest &request, std::chrono::milliseconds patience) const
{
    QLocalSocket socket;
    if (!sendRequest(socket, m_socketPaths(), request))
        return notRunning();
    const auto line = readLine(socket, static_cast<int>(patience.count()));
    return line ? replyOf(*line) : noAnswer(socket);
}

ControlReply ControlClient::follow(const ControlRequest &request,
                                   const std::function<bool(const ControlReply &)> &handler) const
{
    QLocalSocket socket;
    if (!sendRequest(socket, m_socketPaths(), request))
        return notRunning();
    auto line = readLine(socket, answerMilliseconds);
    if (!line)
        return noAnswer(socket);
    for (; line; line = readLine(socket, -1)) {
        ControlReply reply = replyOf(*line);
        // An answer without a result is the last one.
        if (reply.status != ExitStatus::done || reply.result.is_null())
            return reply;
        if (!handler(reply))
            return {};
    }
    return controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is gone without having been quit."));
}

}
