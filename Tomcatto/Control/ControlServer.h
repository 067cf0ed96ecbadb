#pragma once

#include "Control/CommandTable.h"
#include "Foundation/Logger.h"

#include <chrono>
#include <deque>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>
#include <set>

namespace tomcatto {

/// Answers requests on the control socket: one line in, one line out, then the connection ends. A request has 64 KiB
/// and 5 seconds; anything malformed gets one line that says why. The line may lack its end where the request is
/// whole without. A request that follows keeps its connection and gets a line for each change, and a last one without a
/// result when the server goes. Main thread only.
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
    ControlServer(const CommandTable &commands, QString socketPath,
                  std::chrono::milliseconds requestTimeLimit = std::chrono::seconds{5}, QObject *parent = nullptr);
    ~ControlServer() override;

    /// Opens the socket for the user alone. A file that a crash left is taken over, a live one never is.
    [[nodiscard]] ListenResult listen();
    /// Whether anybody follows.
    [[nodiscard]] bool hasFollowers() const noexcept { return !m_followers.empty(); }
    /// Sends a line to everyone who follows.
    void publish(const nlohmann::ordered_json &result);

Q_SIGNALS:
    /// The first one follows, or nobody does any more.
    void followedChanged(bool isFollowed);

private:
    void acceptConnections();
    void forget(QLocalSocket *socket);
    void addFollower(QLocalSocket *socket);
    void removeFollower(QLocalSocket *socket);
    void readRequest(QLocalSocket *socket);
    void readUnfinished(QLocalSocket *socket);
    void answer(QLocalSocket *socket, const QByteArray &line);
    void refuse(QLocalSocket *socket, const QString &reason);
    void send(QLocalSocket *socket, const ControlReply &reply);

    const CommandTable &m_commands;
    QString m_socketPath;
    std::chrono::milliseconds m_requestTimeLimit;
    QLocalServer m_server;
    std::set<QLocalSocket *> m_followers;
    // Connections that have sent no whole request yet, oldest first.
    std::deque<QLocalSocket *> m_waiting;
    Logger m_logger;
};

}
