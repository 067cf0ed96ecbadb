#include "App/TerminalApplication.h"

#include "App/ApplicationControl.h"
#include "App/PlatformAdapters.h"
#include "CommandLine/TerminalFrontEnd.h"
#include "Platform/Posix/StandardError.h"
#include "Platform/Posix/UnixProcessSignals.h"
#include "Platform/Posix/UnixTerminal.h"

#include <QtCore/QCoreApplication>

namespace tomcatto {

namespace {

/// Of the application's surfaces the terminal has the front end alone.
class TerminalSurfaces final : public ApplicationSurfaces
{
public:
    explicit TerminalSurfaces(TerminalFrontEnd &frontEnd)
        : m_frontEnd(frontEnd)
    {
    }

    void prepare() override {}
    void install() override { m_frontEnd.start(); }
    void revealPopover() override {}
    void showOnboardingIfNeeded() override {}

private:
    TerminalFrontEnd &m_frontEnd;
};

/// What the desktop's commands answer here.
ControlReply noWindows(const nlohmann::ordered_json & /*arguments*/)
{
    return controlReply(ExitStatus::notApplicable,
                        QStringLiteral("This Tomcatto runs in a terminal, where there are no windows. "
                                       "Start it on a desktop to get the panel."));
}

}

TerminalApplication::TerminalApplication(const Invocation &invocation, ProgramStart &program)
    : m_invocation(invocation)
    , m_program(program)
{
}

int TerminalApplication::run()
{
    return m_program.runAlone([this] { return runHoldingLock(); });
}

int TerminalApplication::runHoldingLock()
{
    UnixProcessSignals processSignals;
    UnixTerminal terminal(processSignals);
    // The front end draws there.
    if (terminal.isTerminal() && standardErrorIsTerminal() && !m_invocation.isVerbose)
        m_program.log().copyToStandardError(StandardErrorCopy::nothing);

    PlatformAdapters adapters(m_program.directories(), m_invocation.argumentDomain);
    AppDependencies dependencies(adapters.services());
    AppDelegate delegate(dependencies);
    ApplicationControl control(dependencies, delegate, m_program.localSockets(),
                               m_program.directories().controlSocket(), [] { QCoreApplication::quit(); });
    control.answerActivation(processSignals,
                             QStringLiteral("Tomcatto is already running, in a terminal. `tomcatto status` shows the "
                                            "timer; on a desktop `tomcatto panel` opens the panel."));
    control.commands().add(QStringLiteral("panel"), noWindows);
    control.commands().add(QStringLiteral("window"), noWindows);
    control.commands().add(QStringLiteral("preview"), noWindows);
    if (const auto status = control.listen(m_program.runner()))
        return static_cast<int>(*status);
    m_program.instanceLock().announce(m_program.directories().controlSocket());
    TerminalFrontEnd frontEnd(dependencies, control.commands(), control.status(), terminal, processSignals);
    TerminalSurfaces surfaces(frontEnd);
    const Cancellable termination = processSignals.onTerminationRequest([&control] { control.end(); });
    delegate.applicationDidFinishLaunching(surfaces);
    const int status = QCoreApplication::exec();
    delegate.applicationWillTerminate();
    return status;
}

}
