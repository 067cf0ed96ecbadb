#include "Control/ControlClient.h"

#include <QtNetwork/QLocalSocket>

namespace tomcatto {

namespace {

constexpr int connectMilliseconds = 1000;
constexpr int answerMilliseconds = 5000;

ControlReply notRunning()
{
    return controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is not running. Start it with: tomcatto"));
}

ControlReply noAnswer()
{
    return controlReply(ExitStatus::failed, QStringLiteral("Tomcatto is running but does not answer."));
}

bool sendRequest(QLocalSocket &socket, const QString &path, const ControlRequest &request)
{
    socket.connectToServer(path);
    if (!socket.waitForConnected(connectMilliseconds))
        return false;
    socket.write(encoded(request));
    socket.flush();
    return true;
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

ControlClient::ControlClient(QString socketPath)
    : m_socketPath(std::move(socketPath))
{
}

ControlReply ControlClient::send(const ControlRequest &request, std::chrono::milliseconds patience) const
{
    QLocalSocket socket;
    if (!sendRequest(socket, m_socketPath, request))
        return notRunning();
    const auto line = readLine(socket, static_cast<int>(patience.count()));
    return line ? replyOf(*line) : noAnswer();
}

ControlReply ControlClient::follow(const ControlRequest &request,
                                   const std::function<bool(const ControlReply &)> &handler) const
{
    QLocalSocket socket;
    if (!sendRequest(socket, m_socketPath, request))
        return notRunning();
    auto line = readLine(socket, answerMilliseconds);
    if (!line)
        return noAnswer();
    for (; line; line = readLine(socket, -1)) {
        ControlReply reply = replyOf(*line);
        if (reply.status != ExitStatus::done)
            return reply;
        if (!handler(reply))
            break;
    }
    return {};
}

}
