#pragma once

#include "Composition/AppDependencies.h"
#include "Control/CommandTable.h"

namespace tomcatto {

/// Adds the "videos" command, by which the user's own videos are added, removed and chosen. All references outlive the
/// table.
void addVideoCommands(CommandTable &table, AppDependencies &dependencies);

}
