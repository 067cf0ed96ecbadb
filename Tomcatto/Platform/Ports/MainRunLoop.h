#pragma once

#include "Foundation/Cancellable.h"

#include <chrono>

namespace tomcatto {

/// The main thread's event loop. Main thread only.
class MainRunLoop
{
public:
    virtual ~MainRunLoop() = default;

    /// Calls `action` every `interval`, first one interval from now, until the result is destroyed.
    [[nodiscard]] virtual Cancellable every(std::chrono::milliseconds interval, std::function<void()> action) = 0;
    /// Calls `action` once after `delay`, unless the result is destroyed before.
    [[nodiscard]] virtual Cancellable after(std::chrono::milliseconds delay, std::function<void()> action) = 0;
    /// Calls `action` in a later turn of the loop, in the order of the calls. The caller checks what it captures. An
    /// action whose turn never comes goes with the loop, after all that uses it: it must not own what needs any of
    /// that.
    virtual void async(std::function<void()> action) = 0;
};

}
