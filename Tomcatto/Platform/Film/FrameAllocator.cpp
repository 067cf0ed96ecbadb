#include "Platform/Film/FrameAllocator.h"

#include <gst/gst.h>

namespace tomcatto {
namespace {

/// What is smaller is not a frame of a film that is worth it, and is copied where it is one after all.
constexpr std::size_t smallestPiece = 256UL * 1024;

FrameMemory *frames = nullptr;
GstAllocator *usual = nullptr;

GstMemory *allocate(GstAllocator *, gsize size, GstAllocationParams *wish)
{
    const std::size_t whole = wish->prefix + size + wish->padding;
    // What has to be zero around it is somebody's input.
    std::byte *piece = size < smallestPiece || wish->flags != 0 ? nullptr : frames->take(whole);
    if (!piece)
        return gst_allocator_alloc(usual, size, wish);
    return gst_memory_new_wrapped(GstMemoryFlags{}, piece, whole, wish->prefix, size, piece,
                                  [](gpointer ended) { frames->giveBack(static_cast<std::byte *>(ended)); });
}

}

void allocateFramesIn(FrameMemory &memory)
{
    frames = &memory;
    usual = gst_allocator_find(GST_ALLOCATOR_SYSMEM);
    const auto initialise = [](gpointer kind, gpointer) { static_cast<GstAllocatorClass *>(kind)->alloc = allocate; };
    const GType kind =
        g_type_register_static_simple(gst_allocator_get_type(), "TomcattoFrameAllocator", sizeof(GstAllocatorClass),
                                      initialise, sizeof(GstAllocator), nullptr, GTypeFlags{});
    gst_allocator_set_default(static_cast<GstAllocator *>(g_object_new(kind, nullptr)));
}

}
