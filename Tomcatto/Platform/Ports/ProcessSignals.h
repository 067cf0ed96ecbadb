#pragma once

#include "Foundation/Cancellable.h"

namespace tomcatto {

/// The system's requests to this process. Main thread only.
class ProcessSignals
{
public:
    virtual ~ProcessSignals() = default;

    /// Calls `handler` on the main loop when the process is asked to end (terminate, interrupt, hang up).
    [[nodiscard]] virtual Cancellable onTerminationRequest(std::function<void()> handler) = 0;
    /// Whether that has happened, also before the main loop has heard of it.
    [[nodiscard]] virtual bool isTerminationRequested() const = 0;
    /// Calls `handler` on the main loop when the process was stopped and goes on, or the terminal changed its size.
    [[nodiscard]] virtual Cancellable onTerminalChanged(std::function<void()> handler) = 0;
};

}
