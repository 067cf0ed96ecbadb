#pragma once

#include <array>
#include <memory>
#include <QtGui/QImage>
#include <QtMultimedia/QVideoFrame>

struct SwsContext;

namespace tomcatto {

/// Turns video frames into pictures that fill a size and are cropped to it, with the least work a processor can do it
/// in: one pass from the planes to the pixels, into buffers that are used again. One thread at a time.
class FramePicture final
{
public:
    /// The picture of a frame, opaque, `size` device pixels large; a null picture where the frame cannot be read.
    [[nodiscard]] QImage picture(QVideoFrame frame, QSize size);

private:
    struct Free
    {
        void operator()(SwsContext *context) const;
    };

    [[nodiscard]] bool scale(QVideoFrame &frame, const QRect &part, QImage &into);
    [[nodiscard]] QImage &buffer(QSize size);

    std::unique_ptr<SwsContext, Free> m_context;
    // One is shown while the other is written.
    std::array<QImage, 3> m_buffers;
};

}
