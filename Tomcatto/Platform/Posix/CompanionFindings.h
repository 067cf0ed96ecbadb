#pragma once

#include "Platform/Ports/Finding.h"

namespace tomcatto {

/// A companion program that looks for itself when it is called with "--findings".
struct FindingCompanion
{
    QString program;
    /// What it looks at, and what does not happen without it.
    QString part;
    QString loss;
};

/// What companions find, all asked at once, in processes of their own: the libraries that they look with may wait
/// without end or crash. One that is missing or gives no answer within some seconds is a finding as well.
[[nodiscard]] Findings companionFindings(const std::vector<FindingCompanion> &companions);

}
