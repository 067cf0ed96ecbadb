#include "Platform/Posix/StandardDescriptors.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace tomcatto {

void openMissingStandardDescriptors()
{
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        // The lowest free number is given out, and those below are in use.
        if (::fcntl(descriptor, F_GETFD) < 0 && ::open("/dev/null", O_RDONLY) != descriptor)
            std::abort();
    }
}

void letWritesFail()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}
