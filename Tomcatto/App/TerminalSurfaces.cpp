#include "App/TerminalSurfaces.h"

#include "App/ApplicationControl.h"
#include "CommandLine/TerminalFrontEnd.h"

namespace tomcatto {

namespace {

/// Of the application's surfaces the terminal has the front end alone.
class TerminalSurfaces final : public ApplicationSurfaces
{
public:
    explicit TerminalSurfaces(const SurfaceParts &parts)
        : m_frontEnd(parts.dependencies, parts.control.commands(), parts.control.status(), parts.ports.terminal,
                     parts.ports.processSignals)
    {
    }

    void prepare() override {}
    void install() override { m_frontEnd.start(); }
    void revealPopover() override {}
    void showOnboardingIfNeeded() override {}

private:
    TerminalFrontEnd m_frontEnd;
};

/// What the desktop's commands answer here.
ControlReply noWindows(const nlohmann::ordered_json & /*arguments*/)
{
    return controlReply(ExitStatus::notApplicable,
                        QStringLiteral("This Tomcatto runs in a terminal, where there are no windows. "
                                       "Start it on a desktop to get the panel."));
}

std::unique_ptr<ApplicationSurfaces> makeSurfaces(const SurfaceParts &parts)
{
    // The front end draws there.
    if (parts.ports.terminal.isTerminal() && parts.ports.terminal.showsErrors() && !parts.invocation.isVerbose)
        parts.copyLogToStandardError(StandardErrorCopy::nothing);
    for (const char *command : {"panel", "window", "preview"})
        parts.control.commands().add(QLatin1String(command), noWindows);
    return std::make_unique<TerminalSurfaces>(parts);
}

}

FrontEnd terminalFrontEnd()
{
    return {
        QStringLiteral("Tomcatto is already running, in a terminal. `tomcatto status` shows the timer; on a desktop "
                       "`tomcatto panel` opens the panel."),
        makeSurfaces,
        {}};
}

}
