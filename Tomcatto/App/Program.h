#pragma once

#include "App/ApplicationSurfaces.h"
#include "CommandLine/CommandRunner.h"

namespace tomcatto {

/// One of the application's programs, from the words of its command line to its exit status: the log, the commands that
/// need no application, the instance lock and the application itself. Needs Qt's application object. Main thread only.
class Program final
{
public:
    /// Makes the log and Qt's messages go where the platform wants them.
    explicit Program(const ApplicationPlatform &platform);

    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// Carries out a command, or starts the application by `startApplication`. @return the exit status
    [[nodiscard]] int run(const std::function<int(const Invocation &)> &startApplication) const;

    /// Runs the application, as the only one, until it is asked to end; tells the one that runs already where there is
    /// one. @param invocation how it was started. @return the exit status
    [[nodiscard]] int runApplication(const Invocation &invocation, const FrontEnd &frontEnd) const;

private:
    [[nodiscard]] int runHoldingLock(const Invocation &invocation, const FrontEnd &frontEnd) const;

    const ApplicationPlatform &m_platform;
    const ProgramPorts m_ports;
    const CommandRunner m_runner;
};

}
