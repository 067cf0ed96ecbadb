#include "Platform/Posix/SharedMemory.h"

#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace tomcatto {

int openSharedMemory(std::int64_t size)
{
    const std::string name = "/tomcatto-" + std::to_string(::getpid());
    const int memory = ::shm_open(name.c_str(), O_RDWR | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (memory < 0)
        return -1;
    ::shm_unlink(name.c_str());
    if (::ftruncate(memory, size) == 0)
        return memory;
    ::close(memory);
    return -1;
}

void handOn(int descriptor)
{
    ::fcntl(descriptor, F_SETFD, 0);
}

}
