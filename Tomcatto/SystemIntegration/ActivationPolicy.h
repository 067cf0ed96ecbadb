#pragma once

#include "Foundation/Cancellable.h"
#include "Platform/Ports/ActivationPolicyPort.h"

namespace tomcatto {

/// Decides whether the application shows as an ordinary one. It is an accessory while nobody holds it; windows that
/// want a place in the taskbar hold it as long as they need one. Main thread only; outlives what `hold` gave.
class ActivationPolicy final
{
public:
    /// Makes the application an accessory.
    explicit ActivationPolicy(ActivationPolicyPort &port);
    ActivationPolicy(const ActivationPolicy &) = delete;
    ActivationPolicy &operator=(const ActivationPolicy &) = delete;

    /// Makes the application an ordinary one until the result is cancelled, and longer while others hold it too.
    [[nodiscard]] Cancellable hold();
    [[nodiscard]] int holders() const noexcept { return m_holders; }

private:
    void release();

    ActivationPolicyPort &m_port;
    int m_holders = 0;
};

}
