#include "FramePicture.h"

#include <QtGui/QTransform>
#include <QtMultimedia/QVideoFrameFormat>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace tomcatto {
namespace {

AVPixelFormat pixelFormat(QVideoFrameFormat::PixelFormat format)
{
    // Only the formats that decoders give; the others take the slow way.
    const std::array<std::pair<QVideoFrameFormat::PixelFormat, AVPixelFormat>, 7> known{{
        {QVideoFrameFormat::Format_YUV420P, AV_PIX_FMT_YUV420P},
        {QVideoFrameFormat::Format_YUV422P, AV_PIX_FMT_YUV422P},
        {QVideoFrameFormat::Format_NV12, AV_PIX_FMT_NV12},
        {QVideoFrameFormat::Format_P010, AV_PIX_FMT_P010LE},
        {QVideoFrameFormat::Format_BGRX8888, AV_PIX_FMT_BGR0},
        {QVideoFrameFormat::Format_BGRA8888, AV_PIX_FMT_BGRA},
        {QVideoFrameFormat::Format_RGBX8888, AV_PIX_FMT_RGB0},
    }};
    for (const auto &[qtFormat, avFormat] : known) {
        if (qtFormat == format)
            return avFormat;
    }
    return AV_PIX_FMT_NONE;
}

/// The middle part of `from` in the shape of `to`; even edges, as colours are stored for pairs of pixels.
QRect filledPart(QSize from, QSize to)
{
    const QSize part = to.scaled(from, Qt::KeepAspectRatio);
    const QSize even(part.width() & ~1, part.height() & ~1);
    return {QPoint(((from.width() - even.width()) / 2) & ~1, ((from.height() - even.height()) / 2) & ~1), even};
}

/// A picture whose rows have room for whole blocks of pixels: the scaler leaves out a block that does not fit.
QImage roomyPicture(QSize size)
{
    constexpr qsizetype block = 16;
    const qsizetype stride = (size.width() + block - 1) / block * block * 4;
    auto memory = std::make_unique<uchar[]>(static_cast<size_t>(stride * size.height()));
    uchar *pixels = memory.release();
    return {pixels, size.width(),         size.height(),
            stride, QImage::Format_RGB32, [](void *taken) { delete[] static_cast<uchar *>(taken); },
            pixels};
}

/// The picture as it is shown. @param angle clockwise, in degrees
QImage turned(const QImage &picture, int angle, bool isMirrored)
{
    return picture.mirrored(isMirrored, false).transformed(QTransform().rotate(angle));
}

/// First byte of each plane at the corner of the part.
std::array<const uint8_t *, 4> planesAt(const QVideoFrame &frame, AVPixelFormat format, QPoint corner)
{
    const AVPixFmtDescriptor *description = av_pix_fmt_desc_get(format);
    std::array<const uint8_t *, 4> planes{};
    for (int index = 0; index < description->nb_components; ++index) {
        const AVComponentDescriptor &component = description->comp[index];
        const int plane = component.plane;
        if (planes.at(plane) != nullptr || plane >= frame.planeCount())
            continue;
        const bool isColour = index == 1 || index == 2;
        const int column = corner.x() >> (isColour ? description->log2_chroma_w : 0);
        const int row = corner.y() >> (isColour ? description->log2_chroma_h : 0);
        planes.at(plane) =
            frame.bits(plane) + qsizetype{row} * frame.bytesPerLine(plane) + qsizetype{column} * component.step;
    }
    return planes;
}

void setColours(SwsContext *context, const QVideoFrameFormat &format)
{
    constexpr int firstHighDefinitionHeight = 720;
    const bool isStandard = format.colorSpace() == QVideoFrameFormat::ColorSpace_BT601 ||
                            (format.colorSpace() == QVideoFrameFormat::ColorSpace_Undefined &&
                             format.frameHeight() < firstHighDefinitionHeight);
    const int isWide = format.colorRange() == QVideoFrameFormat::ColorRange_Full ? 1 : 0;
    const int *table = sws_getCoefficients(isStandard ? SWS_CS_ITU601 : SWS_CS_ITU709);
    constexpr int one = 1 << 16;
    sws_setColorspaceDetails(context, table, isWide, table, 1, 0, one, one);
}

}

void FramePicture::Free::operator()(SwsContext *context) const
{
    sws_freeContext(context);
}

QImage &FramePicture::buffer(QSize size)
{
    for (QImage &image : m_buffers) {
        if (image.size() == size && image.isDetached())
            return image;
    }
    for (QImage &image : m_buffers) {
        if (image.size() != size || image.isNull())
            return image = roomyPicture(size);
    }
    return m_buffers.front() = roomyPicture(size);
}

bool FramePicture::scale(QVideoFrame &frame, const QRect &part, QImage &into)
{
    const AVPixelFormat format = pixelFormat(frame.pixelFormat());
    if (format == AV_PIX_FMT_NONE || part.isEmpty() || !frame.map(QVideoFrame::ReadOnly))
        return false;
    SwsContext *context =
        sws_getCachedContext(m_context.release(), part.width(), part.height(), format, into.width(), into.height(),
                             AV_PIX_FMT_BGR0, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    m_context.reset(context);
    if (context) {
        setColours(context, frame.surfaceFormat());
        const auto planes = planesAt(frame, format, part.topLeft());
        std::array<int, 4> strides{};
        for (int plane = 0; plane < frame.planeCount(); ++plane)
            strides.at(static_cast<size_t>(plane)) = frame.bytesPerLine(plane);
        const std::array<uint8_t *, 4> target{into.bits()};
        const std::array<int, 4> targetStrides{static_cast<int>(into.bytesPerLine())};
        sws_scale(context, planes.data(), strides.data(), 0, part.height(), target.data(), targetStrides.data());
    }
    frame.unmap();
    return context != nullptr;
}

QImage FramePicture::picture(QVideoFrame frame, QSize size)
{
    if (size.isEmpty())
        return {};
    // Films of telephones lie on their side and say so.
    const int angle = frame.rotationAngle();
    const bool isUpright = angle == 0 && !frame.mirrored();
    const QSize stored = angle % 180 == 0 ? size : size.transposed();
    QImage &into = buffer(stored);
    if (scale(frame, filledPart(frame.size(), stored), into))
        return isUpright ? into : turned(into, angle, frame.mirrored());
    // Upright already.
    const QImage whole = frame.toImage();
    return whole.isNull()
               ? QImage()
               : whole.copy(filledPart(whole.size(), size)).scaled(size).convertToFormat(QImage::Format_RGB32);
}

}
