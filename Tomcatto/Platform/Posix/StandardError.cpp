#include "Platform/Posix/StandardError.h"

#include <unistd.h>

namespace tomcatto {

bool standardErrorIsTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

}
