#pragma once

#include "Foundation/Cancellable.h"

namespace tomcatto {

/// Sleep and wake of the machine. Main thread only.
class WorkspacePower
{
public:
    virtual ~WorkspacePower() = default;

    /// Whether the system tells of its sleep here.
    [[nodiscard]] virtual bool tellsOfSleep() const = 0;
    /// Calls `handler` before the machine sleeps.
    [[nodiscard]] virtual Cancellable onWillSleep(std::function<void()> handler) = 0;
    /// Calls `handler` after the machine woke.
    [[nodiscard]] virtual Cancellable onDidWake(std::function<void()> handler) = 0;
    /// Asks the system to wait with sleeping until the will-sleep handlers have run (true), or no longer (false). Where
    /// the system cannot, nothing happens.
    virtual void setSleepDelayed(bool isDelayed) = 0;
};

}
