#pragma once

#include "App/ProgramStart.h"

namespace tomcatto {

/// The application on a desktop, from the start to the end of its main loop.
class DesktopApplication final
{
public:
    /// @param invocation how it was started.
    DesktopApplication(const Invocation &invocation, ProgramStart &program);

    /// Runs until it is asked to end. @return the exit status
    [[nodiscard]] int run();

private:
    [[nodiscard]] int runHoldingLock();

    const Invocation &m_invocation;
    ProgramStart &m_program;
};

}
