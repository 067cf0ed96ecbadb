#include "App/ApplicationControl.h"

#include "Composition/HistoryCommands.h"
#include "Composition/SettingsCommands.h"
#include "Composition/ShortcutCommands.h"
#include "Composition/StatsCommand.h"
#include "Composition/TimerCommands.h"
#include "Composition/VideoCommands.h"

namespace tomcatto {

ApplicationControl::ApplicationControl(AppDependencies &dependencies, AppDelegate &delegate, LocalSockets &sockets,
                                       const QString &socketPath, std::function<void()> quit, QObject *parent)
    : QObject(parent)
    , m_stateMachine(dependencies.stateMachine)
    , m_status({dependencies.stateMachine, dependencies.timer, dependencies.settings, dependencies.statsAggregator,
                dependencies.manners, dependencies.strings, dependencies.platform.wallClock,
                dependencies.platform.runLoop})
    , m_server(m_commands, sockets, dependencies.platform.runLoop, socketPath)
    , m_quit(std::move(quit))
{
    const QString untilTheEnd = QStringLiteral(" It holds until Tomcatto ends.");
    addTimerCommands(m_commands, dependencies.stateMachine, m_status);
    addStatsCommand(m_commands, dependencies.statsAggregator, dependencies.settings);
    addSettingsCommands(m_commands, {dependencies.settings, dependencies.launchAtLoginService,
                                     dependencies.manners.settings(), dependencies.platform.defaults, untilTheEnd});
    const DesktopServices *const desktop = dependencies.platform.desktop;
    addShortcutCommands(m_commands,
                        {dependencies.shortcutsService, dependencies.strings, dependencies.platform.defaults,
                         desktop ? &desktop->hotKeys : nullptr, untilTheEnd});
    addVideoCommands(m_commands, dependencies.userVideoCommands, dependencies.remoteVideoProvider);
    addHistoryCommands(m_commands, {dependencies.historyEditor, dependencies.historyImporter,
                                    dependencies.platform.wallClock, dependencies.coreDataStack});
    m_commands.add(QStringLiteral("quit"), [this, &dependencies, &delegate](const auto &) {
        m_isEnding = true;
        // The record is on disk before the answer, so the one who asked may read it.
        delegate.applicationWillTerminate();
        dependencies.platform.runLoop.async(*this, m_quit);
        return ControlReply{};
    });
    connect(&m_server, &ControlServer::followersChanged, this, &ApplicationControl::followStatus);
    connect(&m_status, &StatusSource::ticked, this,
            [this](const TimerStatus &status) { m_server.publishTick(toJson(status)); });
}

void ApplicationControl::answerActivation(const ProcessSignals &signals, const QString &message)
{
    m_commands.add(QStringLiteral("activate"), [this, &signals, message](const auto &) {
        // The main loop may hear of the signal after the request, and would end right after its answer.
        return m_isEnding || signals.isTerminationRequested()
                   ? controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is ending."))
                   : controlReply(ExitStatus::done, message);
    });
}

std::optional<ExitStatus> ApplicationControl::listen(const CommandRunner &runner)
{
    return runner.becomeApplication([this] { return m_server.listen() != ControlServer::ListenResult::taken; });
}

void ApplicationControl::offer(MessageBus &bus)
{
    m_busInterface =
        std::make_unique<BusInterface>(bus, m_commands, m_status, m_stateMachine, [this] { return m_isEnding; });
}

void ApplicationControl::end()
{
    m_isEnding = true;
    m_quit();
}

void ApplicationControl::followStatus()
{
    m_status.setTicking(m_server.hasTickFollowers());
    if (std::exchange(m_isFollowed, m_server.hasFollowers()) == m_server.hasFollowers())
        return;
    if (m_isFollowed)
        connect(&m_status, &StatusSource::changed, this,
                [this](const TimerStatus &status) { m_server.publish(toJson(status)); });
    else
        disconnect(&m_status, &StatusSource::changed, this, nullptr);
}

}
