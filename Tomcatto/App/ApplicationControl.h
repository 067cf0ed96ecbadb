#pragma once

#include "App/AppDelegate.h"
#include "Control/ControlServer.h"
#include "Control/StatusSource.h"

namespace tomcatto {

/// The running application's command table and the socket that serves it. Main thread only.
class ApplicationControl final : public QObject
{
    Q_OBJECT

public:
    /// @param quit ends the main loop.
    ApplicationControl(AppDependencies &dependencies, AppDelegate &delegate, LocalSockets &sockets,
                       const QString &socketPath, std::function<void()> quit, QObject *parent = nullptr);

    /// The table; front ends add their own commands.
    [[nodiscard]] CommandTable &commands() noexcept { return m_commands; }
    [[nodiscard]] const StatusSource &status() const noexcept { return m_status; }
    /// Opens the socket.
    [[nodiscard]] ControlServer::ListenResult listen() { return m_server.listen(); }

private:
    void followStatus(bool isFollowed);

    StatusSource m_status;
    CommandTable m_commands;
    ControlServer m_server;
};

}
