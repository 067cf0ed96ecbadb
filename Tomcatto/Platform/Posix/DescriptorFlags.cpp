#include "Platform/Posix/DescriptorFlags.h"

#include <fcntl.h>

namespace tomcatto {

int closedOnReplacement(int descriptor)
{
    if (descriptor >= 0)
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return descriptor;
}

bool stopWaiting(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) == 0;
}

}
