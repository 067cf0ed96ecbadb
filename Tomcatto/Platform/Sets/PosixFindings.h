#pragma once

#include "Platform/Ports/Finding.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/CompanionFindings.h"
#include "Platform/Posix/CompanionSounds.h"

#include <functional>

namespace tomcatto {

/// Looks at what systems of the Unix kind share: places on disk, display, sounds, and what companions find.
/// @param findOwn looks at the rest. Asked before the companions, which it may spare what does not answer.
/// @param ownCompanions what looks beside the companions that are shared
[[nodiscard]] Findings posixFindings(const ApplicationDirectories &directories,
                                     const std::function<Findings()> &findOwn,
                                     const std::vector<FindingCompanion> &ownCompanions,
                                     const CompanionSounds::Finder &findSound);

}
