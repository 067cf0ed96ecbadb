#include "App/DesktopFrontEnd.h"

#include "App/ApplicationControl.h"
#include "App/DesktopSurfaces.h"

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
    case overtaken:
        return refused(QStringLiteral("A later preview or a break came before the video's disk had answered."));
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

std::unique_ptr<ApplicationSurfaces> makeSurfaces(DesktopPlatform &desktop, const SurfaceParts &parts)
{
    AppDelegate &delegate = parts.delegate;
    PlatformServices &platform = parts.dependencies.platform;
    const auto displayLost = [&delegate] {
        delegate.applicationWillTerminate();
        Logger(QStringLiteral("DesktopFrontEnd"))
            .error(QStringLiteral("the display is gone, so Tomcatto has ended; what ran is recorded"));
    };
    auto surfaces = std::make_unique<DesktopSurfaces>(
        parts.dependencies, desktop.ports(platform.runLoop, platform.defaults, parts.dependencies.strings),
        desktop.onDisplayLost(displayLost), [&control = parts.control] { control.end(); });
    addDesktopCommands(parts.control.commands(), *surfaces);
    // The session may yet go on, or end the process without another word.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, &delegate, &AppDelegate::applicationMayTerminate);
    QGuiApplication::setQuitOnLastWindowClosed(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
    return surfaces;
}

}

FrontEnd desktopFrontEnd(DesktopPlatform &desktop)
{
    return {
        QStringLiteral("Tomcatto is already running. Open its panel with a click on its icon, or with: tomcatto panel"),
        [&desktop](const SurfaceParts &parts) { return makeSurfaces(desktop, parts); },
        [&desktop] { return desktop.services(); }};
}

}
