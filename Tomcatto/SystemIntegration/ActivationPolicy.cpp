#include "SystemIntegration/ActivationPolicy.h"

namespace tomcatto {

ActivationPolicy::ActivationPolicy(ActivationPolicyPort &port)
    : m_port(port)
{
    m_port.setPolicy(ActivationPolicyKind::accessory);
}

Cancellable ActivationPolicy::hold()
{
    if (++m_holders == 1)
        m_port.setPolicy(ActivationPolicyKind::regular);
    return Cancellable([this] { release(); });
}

void ActivationPolicy::release()
{
    if (--m_holders == 0)
        m_port.setPolicy(ActivationPolicyKind::accessory);
}

}
