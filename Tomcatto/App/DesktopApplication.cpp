#include "App/DesktopApplication.h"

#include "App/ApplicationControl.h"
#include "App/DesktopAdapters.h"
#include "App/DesktopSurfaces.h"
#include "App/PlatformAdapters.h"
#include "Platform/Posix/UnixProcessSignals.h"
#include "Platform/X11/DisplayLoss.h"

#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

/// The text of an argument; empty where there is none.
QString textOf(const nlohmann::ordered_json &arguments, const char *key)
{
    const auto found = arguments.find(key);
    return found != arguments.end() && found->is_string() ? QString::fromStdString(found->get<std::string>())
                                                          : QString();
}

ControlReply viewFailed(const DesktopSurfaces &surfaces, const QString &name)
{
    return controlReply(ExitStatus::failed,
                        QStringLiteral("The %1 cannot be shown: %2").arg(name, surfaces.viewProblem()));
}

ControlReply previewReply(const DesktopSurfaces &surfaces, DesktopSurfaces::PreviewOutcome outcome)
{
    using enum DesktopSurfaces::PreviewOutcome;
    const auto refused = [](const QString &reason) { return controlReply(ExitStatus::notApplicable, reason); };
    switch (outcome) {
    case opened:
        return {};
    case duringBreak:
        return refused(QStringLiteral("A break covers the screens; the preview can be seen once it is over."));
    case noVideo:
        return refused(QStringLiteral("There is no such video; `tomcatto videos list` shows all."));
    case fileGone:
        return refused(QStringLiteral("The video's file is not there any more."));
    case fileUnreadable:
        return refused(QStringLiteral("The video's file cannot be read."));
    case fileSilent:
        return refused(QStringLiteral("The disk with the video's file does not answer."));
    case noView:
        return viewFailed(surfaces, QStringLiteral("preview"));
    }
    return {};
}

ControlReply windowReply(const DesktopSurfaces &surfaces, DesktopSurfaces::WindowOutcome outcome, const QString &page)
{
    using enum DesktopSurfaces::WindowOutcome;
    switch (outcome) {
    case opened:
        return {};
    case noPage:
        return controlReply(ExitStatus::usage,
                            QStringLiteral("There is no page \"%1\"; there are timer, general, videos, statistics, "
                                           "permissions and about")
                                .arg(page));
    case noView:
        return viewFailed(surfaces, QStringLiteral("window"));
    }
    return {};
}

void addDesktopCommands(CommandTable &commands, DesktopSurfaces &surfaces)
{
    commands.add(QStringLiteral("panel"), [&surfaces](const auto &) {
        return surfaces.showPanel() == DesktopSurfaces::WindowOutcome::noView
                   ? viewFailed(surfaces, QStringLiteral("panel"))
                   : ControlReply{};
    });
    commands.addLater(QStringLiteral("preview"), [&surfaces](const nlohmann::ordered_json &arguments,
                                                             const CommandTable::Answer &answer) {
        surfaces.previewVideo(textOf(arguments, "id"), [&surfaces, answer](DesktopSurfaces::PreviewOutcome outcome) {
            answer(previewReply(surfaces, outcome));
        });
    });
    commands.add(QStringLiteral("window"), [&surfaces](const nlohmann::ordered_json &arguments) {
        const QString page = textOf(arguments, "page");
        return windowReply(surfaces, surfaces.openWindow(page), page);
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
