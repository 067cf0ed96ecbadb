#pragma once

namespace tomcatto {

/// Keeps a descriptor from programs that this one becomes or starts. @return the descriptor; -1 and errno stay as they
/// are
int closedOnReplacement(int descriptor);

/// Makes a descriptor's calls return at once from now on. @return whether they do
[[nodiscard]] bool stopWaiting(int descriptor);

}
