#include "Control/ControlServer.h"

#include <algorithm>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

// A follower that does not read is let go once this much waits for it.
constexpr qsizetype longestBacklog = qsizetype{256} * 1024;
// More connections than this would use up the process's descriptors.
constexpr std::size_t mostAsking = 64;
constexpr std::size_t mostFollowers = 64;

}

ControlServer::ControlServer(const CommandTable &commands, LocalSockets &sockets, MainRunLoop &runLoop,
                             QString socketPath, std::chrono::milliseconds requestTimeLimit, QObject *parent)
    : QObject(parent)
    , m_commands(commands)
    , m_sockets(sockets)
    , m_runLoop(runLoop)
    , m_socketPath(std::move(socketPath))
    , m_requestTimeLimit(requestTimeLimit)
    , m_logger(QStringLiteral("ControlServer"))
{
}

ControlServer::~ControlServer()
{
    for (const auto &[id, client] : m_clients) {
        if (client.stage == Stage::following)
            client.connection->write(encoded(ControlReply{}));
    }
}

ControlServer::ListenResult ControlServer::listen()
{
    QDir().mkpath(QFileInfo(m_socketPath).absolutePath());
    auto listening = m_sockets.listen(
        m_socketPath, [this](std::unique_ptr<LocalConnection> connection) { accept(std::move(connection)); });
    if (!listening)
        return listening.error() == ListenError::taken ? ListenResult::taken : ListenResult::failed;
    m_listening = std::move(*listening);
    return ListenResult::listening;
}

void ControlServer::publish(const nlohmann::ordered_json &result)
{
    const QByteArray line = encoded(ControlReply{ExitStatus::done, {}, result});
    std::vector<quint64> tooSlow;
    for (const auto &[id, client] : m_clients) {
        if (client.stage != Stage::following)
            continue;
        if (client.connection->unsentBytes() > longestBacklog)
            tooSlow.push_back(id);
        else
            client.connection->write(line);
    }
    for (const quint64 id : tooSlow)
        drop(id);
}

void ControlServer::publishTick(const nlohmann::ordered_json &result)
{
    const QByteArray line = encoded(ControlReply{ExitStatus::done, {}, result});
    for (const auto &[id, client] : m_clients) {
        // Those who are behind skip seconds that have passed.
        if (client.stage == Stage::following && client.wantsTicks && client.connection->unsentBytes() == 0)
            client.connection->write(line);
    }
}

bool ControlServer::hasTickFollowers() const
{
    return std::ranges::any_of(
        m_clients, [](const auto &entry) { return entry.second.stage == Stage::following && entry.second.wantsTicks; });
}

void ControlServer::accept(std::unique_ptr<LocalConnection> connection)
{
    const quint64 id = ++m_lastId;
    Client &client = m_clients[id];
    client.connection = std::move(connection);
    startLimit(id, client);
    client.connection->onChange([this, id] { readFrom(id); });
    // Most have sent their request by now.
    readFrom(id);
    if (count(Stage::asking) > mostAsking)
        drop(std::ranges::find(m_clients, Stage::asking, [](const auto &entry) { return entry.second.stage; })->first);
}

void ControlServer::readFrom(quint64 id)
{
    const auto found = m_clients.find(id);
    if (found == m_clients.end())
        return;
    Client &client = found->second;
    const LocalInput input = client.connection->read(longestRequest + 1 - client.received.size());
    switch (client.stage) {
    case Stage::asking:
        client.received += input.bytes;
        return readRequest(id, client, input.peer);
    // What comes after a request has no meaning.
    case Stage::waiting:
        if (input.peer == LocalPeer::gone)
            drop(id);
        return;
    case Stage::following:
        if (input.peer != LocalPeer::open)
            drop(id);
        return;
    case Stage::leaving:
        if (input.peer == LocalPeer::gone || client.connection->unsentBytes() == 0)
            drop(id);
        return;
    }
}

void ControlServer::readRequest(quint64 id, Client &client, LocalPeer peer)
{
    const QByteArray received = client.received;
    if (const auto end = received.indexOf('\n'); end >= 0)
        answer(id, received.left(end + 1));
    else if (received.size() > longestRequest)
        refuse(id, QStringLiteral("A request has at most 65536 bytes"));
    else if (peer == LocalPeer::open ? isWholeRequest(received) : !received.isEmpty())
        answer(id, received);
    else if (peer != LocalPeer::open)
        drop(id);
}

void ControlServer::answer(quint64 id, const QByteArray &line)
{
    if (line.size() > longestRequest)
        return refuse(id, QStringLiteral("A request has at most 65536 bytes"));
    const auto request = decodedRequest(line);
    if (!request)
        return refuse(id, request.error());
    Client &client = m_clients.at(id);
    client.limit.cancel();
    client.received.clear();
    client.stage = Stage::waiting;
    client.wantsTicks = request->wantsTicks;
    if (request->isFollowing && count(Stage::following) >= mostFollowers)
        return send(id, controlReply(ExitStatus::notApplicable, QStringLiteral("Too many others follow already")));
    m_commands.run(request->command, request->arguments,
                   [server = QPointer(this), id, isFollowing = request->isFollowing](const ControlReply &reply) {
                       if (server)
                           server->deliver(id, reply, isFollowing);
                   });
}

void ControlServer::deliver(quint64 id, const ControlReply &reply, bool isFollowing)
{
    const auto found = m_clients.find(id);
    // The one who asked may be gone by now.
    if (found == m_clients.end())
        return;
    if (!isFollowing || reply.status != ExitStatus::done)
        return send(id, reply);
    Client &client = found->second;
    client.stage = Stage::following;
    client.connection->write(encoded(reply));
    Q_EMIT followersChanged();
}

void ControlServer::startLimit(quint64 id, Client &client)
{
    client.limit = m_runLoop.after(m_requestTimeLimit, [this, id] { outOfTime(id); });
}

void ControlServer::outOfTime(quint64 id)
{
    const auto found = m_clients.find(id);
    if (found != m_clients.end() && found->second.stage == Stage::asking)
        refuse(id, QStringLiteral("The request took too long"));
    else
        drop(id);
}

void ControlServer::refuse(quint64 id, const QString &reason)
{
    m_logger.info(QStringLiteral("Refused a request: ") + reason);
    send(id, controlReply(ExitStatus::usage, reason));
}

void ControlServer::send(quint64 id, const ControlReply &reply)
{
    Client &client = m_clients.at(id);
    client.received.clear();
    client.stage = Stage::leaving;
    client.connection->write(encoded(reply));
    if (client.connection->unsentBytes() == 0)
        return drop(id);
    // Somebody who never reads the answer does not keep the connection.
    startLimit(id, client);
}

void ControlServer::drop(quint64 id)
{
    const auto found = m_clients.find(id);
    if (found == m_clients.end())
        return;
    // Taken out first: what goes with it may call back.
    const auto node = m_clients.extract(found);
    if (node.mapped().stage == Stage::following)
        Q_EMIT followersChanged();
}

std::size_t ControlServer::count(Stage stage) const
{
    return static_cast<std::size_t>(
        std::ranges::count(m_clients, stage, [](const auto &entry) { return entry.second.stage; }));
}

}
