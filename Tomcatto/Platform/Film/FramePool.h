#pragma once

#include <gst/gst.h>

namespace tomcatto {

/// Memory for a decoder's frames, which it goes on reading while they are shown. Elsewhere a frame that the decoder has
/// mapped counts as one that it may write to, and is copied when it is handed on. Owned by the caller; any thread.
[[nodiscard]] GstBufferPool *makeFramePool();

}
