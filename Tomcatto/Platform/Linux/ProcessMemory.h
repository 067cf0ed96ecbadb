#pragma once

namespace tomcatto {

/// Lets all threads allocate from one pool of memory. With one for each, what the many threads of a video player have
/// freed lies scattered over all of them, and hardly any of it can go back to the system. Called in `main` before there
/// is a second thread.
void useOneAllocatorArena();

/// Gives the pages back that the allocator keeps for itself, after something large is over. Takes some milliseconds.
/// Any thread.
void giveBackUnusedMemory();

}
