#pragma once

#include "App/ProgramStart.h"

namespace tomcatto {

/// The application with its terminal front end, from the start to the end of its main loop.
class TerminalApplication final
{
public:
    /// @param invocation how it was started.
    TerminalApplication(const Invocation &invocation, ProgramStart &program);

    /// Runs until it is asked to end. @return the exit status
    [[nodiscard]] int run();

private:
    [[nodiscard]] int runHoldingLock();

    const Invocation &m_invocation;
    ProgramStart &m_program;
};

}
