#include "Control/ControlServer.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

namespace tomcatto {

namespace {

constexpr int probeMilliseconds = 500;
// A follower that does not read is let go once this much waits for it.
constexpr qint64 longestBacklog = qint64{256} * 1024;
// More connections than this would use up the process's descriptors, and the socket would close for good.
constexpr std::size_t mostWaiting = 64;
constexpr std::size_t mostFollowers = 64;

}

ControlServer::ControlServer(const CommandTable &commands, QString socketPath,
                             std::chrono::milliseconds requestTimeLimit, QObject *parent)
    : QObject(parent)
    , m_commands(commands)
    , m_socketPath(std::move(socketPath))
    , m_requestTimeLimit(requestTimeLimit)
    , m_logger(QStringLiteral("ControlServer"))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.setListenBacklogSize(256);
    connect(&m_server, &QLocalServer::newConnection, this, &ControlServer::acceptConnections);
}

ControlServer::~ControlServer()
{
    // The sockets' signals must not reach a half-destroyed server.
    for (QLocalSocket *socket : m_server.findChildren<QLocalSocket *>())
        socket->disconnect(this);
    for (QLocalSocket *socket : m_followers) {
        socket->write(encoded(ControlReply{}));
        socket->flush();
    }
}

ControlServer::ListenResult ControlServer::listen()
{
    QDir().mkpath(QFileInfo(m_socketPath).absolutePath());
    // Listening replaces whatever file is there, so whether somebody lives behind it is asked first.
    if (QFileInfo::exists(m_socketPath)) {
        QLocalSocket probe;
        probe.connectToServer(m_socketPath);
        if (probe.waitForConnected(probeMilliseconds))
            return ListenResult::taken;
        QLocalServer::removeServer(m_socketPath);
    }
    if (m_server.listen(m_socketPath))
        return ListenResult::listening;
    m_logger.error(
        QStringLiteral("The control socket %1 cannot be opened: %2").arg(m_socketPath, m_server.errorString()));
    return ListenResult::failed;
}

void ControlServer::publish(const nlohmann::ordered_json &result)
{
    const QByteArray line = encoded(ControlReply{ExitStatus::done, {}, result});
    const auto followers = m_followers;
    for (QLocalSocket *socket : followers) {
        if (socket->bytesToWrite() > longestBacklog)
            socket->abort();
        else
            socket->write(line);
    }
}

void ControlServer::acceptConnections()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        socket->setReadBufferSize(longestRequest + 1);
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            forget(socket);
            removeFollower(socket);
            socket->deleteLater();
        });
        m_waiting.push_back(socket);
        if (m_waiting.size() > mostWaiting)
            m_waiting.front()->abort();
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        auto *const limit = new QTimer(socket);
        limit->setObjectName(QStringLiteral("limit"));
        limit->setSingleShot(true);
        connect(limit, &QTimer::timeout, this,
                [this, socket] { refuse(socket, QStringLiteral("The request took too long")); });
        limit->start(m_requestTimeLimit);
        if (socket->bytesAvailable() > 0)
            readRequest(socket);
    }
}

void ControlServer::forget(QLocalSocket *socket)
{
    std::erase(m_waiting, socket);
}

void ControlServer::readRequest(QLocalSocket *socket)
{
    // What comes after the request of a follower has no meaning.
    if (socket->property("answered").toBool()) {
        socket->readAll();
        return;
    }
    if (socket->canReadLine())
        answer(socket, socket->readLine());
    else if (socket->bytesAvailable() > longestRequest)
        refuse(socket, QStringLiteral("A request has at most 65536 bytes"));
    // Whoever stops writing without ending the line could not be answered any more once the socket has noticed.
    else if (isWholeRequest(socket->peek(longestRequest)))
        answer(socket, socket->readAll());
}

void ControlServer::answer(QLocalSocket *socket, const QByteArray &line)
{
    if (line.size() > longestRequest)
        return refuse(socket, QStringLiteral("A request has at most 65536 bytes"));
    const auto request = decodedRequest(line);
    if (!request)
        return refuse(socket, request.error());
    delete socket->findChild<QTimer *>(QStringLiteral("limit"));
    socket->setProperty("answered", true);
    forget(socket);
    if (request->isFollowing && m_followers.size() >= mostFollowers)
        return send(socket, controlReply(ExitStatus::notApplicable, QStringLiteral("Too many others follow already")));
    const bool isFollowing = request->isFollowing;
    m_commands.run(request->command, request->arguments,
                   [this, client = QPointer(socket), isFollowing](const ControlReply &reply) {
                       // Whoever asked may be gone by now.
                       if (!client)
                           return;
                       if (!isFollowing || reply.status != ExitStatus::done)
                           return send(client, reply);
                       addFollower(client);
                       client->write(encoded(reply));
                   });
}

void ControlServer::addFollower(QLocalSocket *socket)
{
    m_followers.insert(socket);
    if (m_followers.size() == 1)
        Q_EMIT followedChanged(true);
}

void ControlServer::removeFollower(QLocalSocket *socket)
{
    if (m_followers.erase(socket) > 0 && m_followers.empty())
        Q_EMIT followedChanged(false);
}

void ControlServer::refuse(QLocalSocket *socket, const QString &reason)
{
    m_logger.info(QStringLiteral("Refused a request: ") + reason);
    socket->setProperty("answered", true);
    forget(socket);
    send(socket, controlReply(ExitStatus::usage, reason));
}

void ControlServer::send(QLocalSocket *socket, const ControlReply &reply)
{
    socket->write(encoded(reply));
    socket->flush();
    socket->disconnectFromServer();
    // Somebody who never reads the answer does not keep the connection.
    if (socket->state() != QLocalSocket::UnconnectedState)
        QTimer::singleShot(m_requestTimeLimit, socket, [socket] { socket->abort(); });
}

}
