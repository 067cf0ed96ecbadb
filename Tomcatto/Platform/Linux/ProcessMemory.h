#pragma once

namespace tomcatto {

/// Lets all threads allocate from one pool of memory. With one for each, what the many threads of a video player have
/// freed lies scattered over all of them, and hardly any of it can go back to the system. Called in `main` before there
/// is a second thread.
void useOneAllocatorArena();

/// Gives back what only something that is over needed, such as the start or a view: pages that the allocator keeps for
/// itself, and the pages of programs and libraries, which stay in the system's cache of files as long as that has room.
/// Those needed again come back by themselves, without a read from disk as a rule. Takes some milliseconds. Any thread.
void giveBackUnusedMemory();

}
