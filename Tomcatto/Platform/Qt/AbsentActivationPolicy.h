#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"

namespace tomcatto {

/// Windows are listed among the running ones as the desktop likes.
class AbsentActivationPolicy final : public ActivationPolicyPort
{
public:
    void setPolicy(ActivationPolicyKind /*kind*/) override {}
};

}
