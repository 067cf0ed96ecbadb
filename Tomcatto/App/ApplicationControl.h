#pragma once

#include "App/AppDelegate.h"
#include "CommandLine/CommandRunner.h"
#include "Control/BusInterface.h"
#include "Control/ControlServer.h"
#include "Control/StatusSource.h"
#include "Platform/Ports/ProcessSignals.h"

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
    /// Answers a second start of the application with `message`, unless this one is ending: then with `notRunning`,
    /// and the other one waits to take its place. The signals outlive this object.
    void answerActivation(const ProcessSignals &signals, const QString &message);
    /// Opens the socket. @return the status to end with where another application serves it; else nothing
    [[nodiscard]] std::optional<ExitStatus> listen(const CommandRunner &runner);
    /// Lets other programs in over the bus, which outlives this object; `withdraw` shuts them out again.
    void offer(MessageBus &bus);
    void withdraw() { m_busInterface.reset(); }
    /// Ends the main loop.
    void end();

private:
    void followStatus();

    const PomodoroStateMachine &m_stateMachine;
    StatusSource m_status;
    CommandTable m_commands;
    ControlServer m_server;
    std::function<void()> m_quit;
    std::unique_ptr<BusInterface> m_busInterface;
    bool m_isEnding = false;
    bool m_isFollowed = false;
};

}
