#pragma once

#include "Foundation/Cancellable.h"

#include <chrono>
#include <functional>

class QObject;

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
    /// Calls `action` in a later turn of the loop, in the order of the calls, unless `context` is destroyed before:
    /// with it goes what the action holds.
    virtual void async(QObject &context, std::function<void()> action) = 0;
};

}
