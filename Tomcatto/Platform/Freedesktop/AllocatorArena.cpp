#include "Platform/Freedesktop/AllocatorArena.h"

#include <malloc.h>

namespace tomcatto {

void useOneAllocatorArena()
{
    ::mallopt(M_ARENA_MAX, 1);
}

}
