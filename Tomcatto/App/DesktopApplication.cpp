#include "App/DesktopApplication.h"

#include "App/ApplicationControl.h"
#include "App/DesktopAdapters.h"
#include "App/DesktopSurfaces.h"
#include "App/PlatformAdapters.h"
#include "Platform/Freedesktop/UnixProcessSignals.h"
#include "Platform/X11/DisplayLoss.h"

#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

void addDesktopCommands(CommandTable &commands, DesktopSurfaces &surfaces)
{
    commands.add(QStringLiteral("panel"), [&surfaces](const auto &) {
        surfaces.showPanel();
        return ControlReply{};
    });
    commands.add(QStringLiteral("preview"), [&surfaces](const nlohmann::ordered_json &arguments) {
        const auto id = arguments.find("id");
        const bool isText = id != arguments.end() && id->is_string();
        if (surfaces.previewVideo(isText ? QString::fromStdString(id->get<std::string>()) : QString()))
            return ControlReply{};
        return controlReply(
            ExitStatus::notApplicable,
            QStringLiteral("There is no such video, or its file is gone; `tomcatto videos list` shows all"));
    });
    commands.add(QStringLiteral("window"), [&surfaces](const nlohmann::ordered_json &arguments) {
        const auto page = arguments.find("page");
        const bool isText = page != arguments.end() && page->is_string();
        const QString name = isText ? QString::fromStdString(page->get<std::string>()) : QString();
        if (surfaces.openWindow(name))
            return ControlReply{};
        return controlReply(ExitStatus::usage,
                            QStringLiteral("There is no page \"%1\"; there are timer, general, videos, statistics, "
                                           "permissions and about")
                                .arg(name));
    });
}

}

DesktopApplication::DesktopApplication(const Invocation &invocation, ProgramStart &program)
    : m_invocation(invocation)
    , m_program(program)
{
}

int DesktopApplication::run()
{
    return m_program.runAlone([this] { return runHoldingLock(); });
}

int DesktopApplication::runHoldingLock()
{
    m_program.log().setStandardErrorLevel(LogLevel::debug);
    UnixProcessSignals processSignals;
    PlatformAdapters adapters(m_program.directories(), m_invocation.argumentDomain);
    const DesktopAdapters desktopAdapters;
    PlatformServices services = adapters.services();
    services.desktop = &desktopAdapters.services();
    AppDependencies dependencies(services);
    AppDelegate delegate(dependencies);
    ApplicationControl control(dependencies, delegate, m_program.localSockets(),
                               m_program.directories().controlSocket(), [] { QCoreApplication::quit(); });
    control.answerActivation(processSignals,
                             QStringLiteral("Tomcatto is already running. Open its panel with a click on its icon, or "
                                            "with: tomcatto panel"));
    if (const auto status = control.listen(m_program.runner()))
        return static_cast<int>(*status);
    m_program.instanceLock().announce(m_program.directories().controlSocket());
    const auto end = [&control] { control.end(); };
    DesktopSurfaces surfaces(dependencies, end);
    addDesktopCommands(control.commands(), surfaces);
    const Cancellable termination = processSignals.onTerminationRequest(end);
    // The session may yet go on, or end the process without another word.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, &delegate, &AppDelegate::applicationMayTerminate);
    const DisplayLoss displayLoss([&delegate] {
        delegate.applicationWillTerminate();
        Logger(QStringLiteral("DesktopApplication"))
            .error(QStringLiteral("the display is gone, so Tomcatto has ended; what ran is recorded"));
    });
    QGuiApplication::setQuitOnLastWindowClosed(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
    delegate.applicationWillFinishLaunching({m_invocation.isBackground, m_invocation.isUiTest});
    delegate.applicationDidFinishLaunching(surfaces);
    const int status = QCoreApplication::exec();
    delegate.applicationWillTerminate();
    return status;
}

}
