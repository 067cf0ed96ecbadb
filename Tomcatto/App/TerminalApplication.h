#pragma once

#include "App/PlatformAdapters.h"
#include "CommandLine/CommandRunner.h"
#include "Platform/Freedesktop/SystemLogSink.h"

namespace tomcatto {

/// The application with its terminal front end, from the start to the end of its main loop.
class TerminalApplication final
{
public:
    /// @param invocation how it was started. @param runner tells a running application about a second start.
    TerminalApplication(const Invocation &invocation, const ApplicationDirectories &directories,
                        InstanceLock &instanceLock, const CommandRunner &runner, const SystemLogSink &log);

    /// Runs until it is asked to end. @return the exit status
    [[nodiscard]] int run();

private:
    [[nodiscard]] int runHoldingLock();

    const Invocation &m_invocation;
    const ApplicationDirectories &m_directories;
    InstanceLock &m_instanceLock;
    const CommandRunner &m_runner;
    const SystemLogSink &m_log;
};

}
