#include "App/ApplicationControl.h"

#include "Composition/TimerCommands.h"
#include "Composition/VideoCommands.h"

namespace tomcatto {

ApplicationControl::ApplicationControl(AppDependencies &dependencies, AppDelegate &delegate, LocalSockets &sockets,
                                       const QString &socketPath, std::function<void()> quit, QObject *parent)
    : QObject(parent)
    , m_status({dependencies.stateMachine, dependencies.timer, dependencies.settings, dependencies.statsAggregator,
                dependencies.strings, dependencies.platform.wallClock, dependencies.platform.runLoop})
    , m_server(m_commands, sockets, socketPath)
{
    addTimerCommands(m_commands, dependencies, m_status);
    addVideoCommands(m_commands, dependencies);
    m_commands.add(QStringLiteral("quit"), [&dependencies, &delegate, quit = std::move(quit)](const auto &) {
        // The record is on disk before the answer, so whoever asked may read it.
        delegate.applicationWillTerminate();
        dependencies.platform.runLoop.async(quit);
        return ControlReply{};
    });
    connect(&m_server, &ControlServer::followedChanged, this, &ApplicationControl::followStatus);
}

void ApplicationControl::followStatus(bool isFollowed)
{
    if (isFollowed)
        connect(&m_status, &StatusSource::changed, this,
                [this](const TimerStatus &status) { m_server.publish(toJson(status)); });
    else
        disconnect(&m_status, &StatusSource::changed, this, nullptr);
}

}
