#include "Platform/Linux/ProcessMemory.h"

#include <malloc.h>

namespace tomcatto {

void useOneAllocatorArena()
{
    ::mallopt(M_ARENA_MAX, 1);
}

void giveBackUnusedMemory()
{
    ::malloc_trim(0);
}

}
