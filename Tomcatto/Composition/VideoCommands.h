#pragma once

#include "Control/CommandTable.h"
#include "Media/UserVideoCommands.h"

namespace tomcatto {

/// Adds the "videos" command, by which the user's own videos are listed, added, removed and chosen. `videos` outlives
/// the table.
void addVideoCommands(CommandTable &table, UserVideoCommands &videos);

}
