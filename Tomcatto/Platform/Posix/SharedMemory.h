#pragma once

#include <cstdint>

namespace tomcatto {

/// Opens memory without a name, which takes room only where it is written to. @param size in bytes. @return the
/// descriptor, which is the caller's to close; -1 where there is none
[[nodiscard]] int openSharedMemory(std::int64_t size);

/// Lets the program that this process becomes have a descriptor. To be called in a child, before it is that program.
void handOn(int descriptor);

}
