#pragma once

#include "Composition/RemoteVideoCommands.h"
#include "Media/UserVideoCommands.h"

namespace tomcatto {

/// Adds the "videos" command, by which the user's own videos and those of a remote library are listed, added,
/// downloaded, removed and chosen. `videos` and `library` outlive the table.
void addVideoCommands(CommandTable &table, UserVideoCommands &videos, RemoteVideoProvider &library);

}
