#pragma once

#include "Control/CommandTable.h"
#include "Foundation/Logger.h"
#include "Platform/Ports/LocalSockets.h"
#include "Platform/Ports/MainRunLoop.h"

#include <map>

namespace tomcatto {

/// Answers requests on the control socket: one line in, one line out, then the connection ends. A request has 64 KiB
/// and 5 seconds; anything malformed gets one line that says why. The line may lack its end where the request is
/// whole without or the client stops writing. A request that follows keeps its connection until the client stops
/// writing and gets a line for each change, and a last one without a result when the server goes; one that wants ticks
/// and has read what came before gets those too. Main thread only.
class ControlServer final : public QObject
{
    Q_OBJECT

public:
    /// What listening came to.
    enum class ListenResult {
        listening,
        /// A live application answers there.
        taken,
        failed,
    };

    /// @param requestTimeLimit how long a client may take to send its request.
    ControlServer(const CommandTable &commands, LocalSockets &sockets, MainRunLoop &runLoop, QString socketPath,
                  std::chrono::milliseconds requestTimeLimit = std::chrono::seconds{5}, QObject *parent = nullptr);
    ~ControlServer() override;

    /// Opens the socket for the user alone. A file that a crash left is taken over, a live one never is.
    [[nodiscard]] ListenResult listen();
    /// Whether anybody follows.
    [[nodiscard]] bool hasFollowers() const { return count(Stage::following) > 0; }
    /// Whether a follower wants ticks.
    [[nodiscard]] bool hasTickFollowers() const;
    /// Sends a line to everyone who follows.
    void publish(const nlohmann::ordered_json &result);
    /// Sends a line to those who want ticks and keep up with them.
    void publishTick(const nlohmann::ordered_json &result);

Q_SIGNALS:
    /// Somebody follows, or does no more.
    void followersChanged();

private:
    enum class Stage {
        /// Has sent no whole request yet.
        asking,
        /// Its command has not answered yet.
        waiting,
        following,
        /// Goes when it has read its answer.
        leaving,
    };
    struct Client
    {
        std::unique_ptr<LocalConnection> connection;
        Cancellable limit;
        Stage stage = Stage::asking;
        bool wantsTicks = false;
        QByteArray received;
    };
    /// Clients in the order they came.
    using Clients = std::map<quint64, Client>;

    void accept(std::unique_ptr<LocalConnection> connection);
    void readFrom(quint64 id);
    void readRequest(quint64 id, Client &client, LocalPeer peer);
    void answer(quint64 id, const QByteArray &line);
    void deliver(quint64 id, const ControlReply &reply, bool isFollowing);
    void startLimit(quint64 id, Client &client);
    void outOfTime(quint64 id);
    void refuse(quint64 id, const QString &reason);
    void send(quint64 id, const ControlReply &reply);
    void drop(quint64 id);
    [[nodiscard]] std::size_t count(Stage stage) const;

    const CommandTable &m_commands;
    LocalSockets &m_sockets;
    MainRunLoop &m_runLoop;
    QString m_socketPath;
    std::chrono::milliseconds m_requestTimeLimit;
    Logger m_logger;
    Clients m_clients;
    quint64 m_lastId = 0;
    Cancellable m_listening;
};

}
