#pragma once

#include <cstdint>

namespace tomcatto {

/// How the application shows among the running ones.
enum class ActivationPolicyKind : std::uint8_t {
    /// In no dock or taskbar and in no window switcher: it lives in its status item.
    accessory,
    /// As an ordinary application.
    regular
};

/// Sets how the application shows among the running ones. Main thread only.
class ActivationPolicyPort
{
public:
    virtual ~ActivationPolicyPort() = default;

    /// Takes effect for windows that are open and for those opened later. Setting the same kind again is harmless.
    virtual void setPolicy(ActivationPolicyKind kind) = 0;
};

}
