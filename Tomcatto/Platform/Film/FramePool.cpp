#include "Platform/Film/FramePool.h"

#include <gst/video/gstvideopool.h>
#include <gst/video/video.h>

namespace tomcatto {
namespace {

GstBufferPoolClass *usual = nullptr;

/// Tells where a plane lies without taking the memory for writing: only a decoder writes, and before it hands a frame
/// on.
gboolean find(GstVideoMeta *meta, guint plane, GstMapInfo *info, gpointer *data, gint *stride, GstMapFlags)
{
    *info = {};
    GstMapInfo whole;
    if (!gst_buffer_map(meta->buffer, &whole, GST_MAP_READ))
        return FALSE;
    // It stays there for as long as the buffer does.
    *data = whole.data + meta->offset[plane];
    *stride = meta->stride[plane];
    gst_buffer_unmap(meta->buffer, &whole);
    return TRUE;
}

gboolean leave(GstVideoMeta *, guint, GstMapInfo *)
{
    return TRUE;
}

GstFlowReturn allocate(GstBufferPool *pool, GstBuffer **buffer, GstBufferPoolAcquireParams *wish)
{
    const GstFlowReturn flow = usual->alloc_buffer(pool, buffer, wish);
    GstVideoMeta *meta = flow == GST_FLOW_OK ? gst_buffer_get_video_meta(*buffer) : nullptr;
    if (meta && gst_buffer_n_memory(*buffer) == 1) {
        meta->map = find;
        meta->unmap = leave;
    }
    return flow;
}

void initialise(gpointer kind, gpointer)
{
    usual = static_cast<GstBufferPoolClass *>(g_type_class_peek_parent(kind));
    static_cast<GstBufferPoolClass *>(kind)->alloc_buffer = allocate;
}

}

GstBufferPool *makeFramePool()
{
    static const GType kind =
        g_type_register_static_simple(GST_TYPE_VIDEO_BUFFER_POOL, "TomcattoFramePool", sizeof(GstVideoBufferPoolClass),
                                      initialise, sizeof(GstVideoBufferPool), nullptr, GTypeFlags{});
    return static_cast<GstBufferPool *>(gst_object_ref_sink(g_object_new(kind, nullptr)));
}

}
