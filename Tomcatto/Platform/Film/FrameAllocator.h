#pragma once

#include "Platform/Film/FrameMemory.h"

namespace tomcatto {

/// Lets everything in this process that asks GStreamer for memory of a frame's size have it from there. Once.
void allocateFramesIn(FrameMemory &memory);

}
