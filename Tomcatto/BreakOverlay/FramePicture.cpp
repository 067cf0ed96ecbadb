#include "FramePicture.h"

#include <cstring>
#include <QtGui/QTransform>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace tomcatto {
namespace {

/// The middle part of `from` in the shape of `to`; even edges, as colours are stored for pairs of pixels.
QRect filledPart(QSize from, QSize to)
{
    const QSize part = to.scaled(from, Qt::KeepAspectRatio);
    const QSize even(part.width() & ~1, part.height() & ~1);
    return {QPoint(((from.width() - even.width()) / 2) & ~1, ((from.height() - even.height()) / 2) & ~1), even};
}

/// The picture as it is shown. @param angle clockwise, in degrees
QImage turned(const QImage &picture, int angle, bool isMirrored)
{
    return picture.mirrored(isMirrored, false).transformed(QTransform().rotate(angle));
}

/// First byte of each plane at the corner of a part.
std::array<const uint8_t *, 4> planesAt(const FilmFrame &frame, QPoint corner)
{
    const AVPixFmtDescriptor *description = av_pix_fmt_desc_get(frame.format);
    std::array<const uint8_t *, 4> planes{};
    for (int index = 0; index < description->nb_components; ++index) {
        const AVComponentDescriptor &component = description->comp[index];
        const auto plane = static_cast<size_t>(component.plane);
        if (planes.at(plane) != nullptr)
            continue;
        const bool isColour = index == 1 || index == 2;
        const int column = corner.x() >> (isColour ? description->log2_chroma_w : 0);
        const int row = corner.y() >> (isColour ? description->log2_chroma_h : 0);
        planes.at(plane) =
            frame.planes.at(plane) + qsizetype{row} * frame.strides.at(plane) + qsizetype{column} * component.step;
    }
    return planes;
}

void setColours(SwsContext *context, const FilmFrame &frame)
{
    const int *table = sws_getCoefficients(frame.isStandard ? SWS_CS_ITU601 : SWS_CS_ITU709);
    constexpr int one = 1 << 16;
    sws_setColorspaceDetails(context, table, frame.isFullRange ? 1 : 0, table, 1, 0, one, one);
}

/// Whether a pixel's colour depends on nothing beside it, so that any part can be drawn by itself.
bool isDrawnInParts(AVPixelFormat format)
{
    return format == AV_PIX_FMT_YUV420P || format == AV_PIX_FMT_YUV422P;
}

/// How a plane stores the pixels: so many bytes for a block of them.
struct PlaneLayout
{
    int columnShift = 0;
    int rowShift = 0;
    int bytes = 0;
};

std::array<PlaneLayout, 4> layoutOf(AVPixelFormat format)
{
    std::array<PlaneLayout, 4> planes;
    const AVPixFmtDescriptor *description = av_pix_fmt_desc_get(format);
    for (int index = 0; index < description->nb_components; ++index) {
        const bool isColour = index == 1 || index == 2;
        const AVComponentDescriptor &component = description->comp[index];
        PlaneLayout &plane = planes.at(static_cast<size_t>(component.plane));
        if (plane.bytes == 0)
            plane = {isColour ? description->log2_chroma_w : 0, isColour ? description->log2_chroma_h : 0,
                     component.step};
    }
    return planes;
}

/// Begins to read a part: another processor has just written it, and would be waited for at each row.
void fetch(const FilmFrame &frame, const QRect &part)
{
    constexpr int line = 64;
    const auto planes = layoutOf(frame.format);
    for (size_t plane = 0; plane < planes.size(); ++plane) {
        const PlaneLayout &layout = planes.at(plane);
        const int from = (part.left() >> layout.columnShift) * layout.bytes;
        const int to = ((part.right() >> layout.columnShift) + 1) * layout.bytes;
        for (int row = part.top() >> layout.rowShift; layout.bytes > 0 && row <= part.bottom() >> layout.rowShift;
             ++row) {
            const uint8_t *pixels = frame.planes.at(plane) + qsizetype{row} * frame.strides.at(plane);
            for (int column = from; column < to; column += line)
                __builtin_prefetch(pixels + column);
        }
    }
}

/// Marks which of some areas side by side differ, row by row, for memory is read fastest in its own order.
void compare(const FilmFrame &before, const FilmFrame &after, const std::vector<QRect> &areas,
             std::vector<bool> &differ)
{
    const auto planes = layoutOf(after.format);
    const QRect &first = areas.front();
    for (size_t plane = 0; plane < planes.size(); ++plane) {
        const PlaneLayout &layout = planes.at(plane);
        for (int row = first.top() >> layout.rowShift; layout.bytes > 0 && row <= first.bottom() >> layout.rowShift;
             ++row) {
            const uint8_t *old = before.planes.at(plane) + qsizetype{row} * before.strides.at(plane);
            const uint8_t *recent = after.planes.at(plane) + qsizetype{row} * after.strides.at(plane);
            for (size_t index = 0; index < areas.size(); ++index) {
                if (differ[index])
                    continue;
                const int from = (areas[index].left() >> layout.columnShift) * layout.bytes;
                const int to = ((areas[index].right() >> layout.columnShift) + 1) * layout.bytes;
                differ[index] = std::memcmp(old + from, recent + from, static_cast<size_t>(to - from)) != 0;
            }
        }
    }
}

/// What of the stored part a seen area is made of, with all that its colours come from.
QRect sourceOf(const QRect &area, const QRect &part, QSize size)
{
    const double across = double(part.width()) / size.width();
    const double down = double(part.height()) / size.height();
    const QRectF source(part.x() + area.x() * across, part.y() + area.y() * down, area.width() * across,
                        area.height() * down);
    const QPointF reach(8 + 4 * across, 8 + 4 * down);
    return source.adjusted(-reach.x(), -reach.y(), reach.x(), reach.y()).toAlignedRect() & part;
}

/// Copies an area of a picture to where it belongs on a larger one.
void copyPixels(const QImage &from, QPoint corner, const QRect &area, QImage &onto, QPoint origin)
{
    for (int row = 0; row < area.height(); ++row) {
        const uchar *source = from.constScanLine(corner.y() + row) + corner.x() * qsizetype{4};
        uchar *target = onto.scanLine(origin.y() + area.y() + row) + (origin.x() + area.x()) * qsizetype{4};
        std::memcpy(target, source, static_cast<size_t>(area.width()) * 4);
    }
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

}

void FramePicture::Free::operator()(SwsContext *context) const
{
    sws_freeContext(context);
}

void FramePicture::setFrame(const FilmFrame &frame, QSize size)
{
    const bool isNext = size == m_size && m_frame.isLike(frame);
    m_before = isNext ? m_frame : FilmFrame();
    if (!isNext)
        m_scalers.clear();
    m_frame = frame;
    m_size = size;
    // Films of telephones lie on their side and say so.
    m_part = filledPart(frame.size, frame.angle % 180 == 0 ? size : size.transposed());
    m_isDirect = frame.angle == 0 && !frame.isMirrored && m_part.size() == size && isDrawnInParts(frame.format);
    m_whole = {};
}

std::vector<bool> FramePicture::changes(const std::vector<QRect> &row) const
{
    std::vector<bool> differ(row.size(), !m_before.isValid());
    if (!m_before.isValid())
        return differ;
    std::vector<QRect> sources;
    const bool isUpright = m_frame.angle == 0 && !m_frame.isMirrored;
    for (const QRect &area : row) {
        const QRect source = isUpright ? sourceOf(area, m_part, m_size) : m_part;
        sources.push_back(m_isDirect ? area.translated(m_part.topLeft()) : source);
    }
    compare(m_before, m_frame, sources, differ);
    return differ;
}

void FramePicture::paint(const QRect &area, QImage &onto, QPoint origin)
{
    constexpr int block = 8;
    if (!m_isDirect) {
        if (m_whole.isNull())
            drawWhole();
        copyPixels(m_whole, area.topLeft(), area, onto, origin);
    } else if (area.width() % block == 0) {
        const QPoint corner = origin + area.topLeft();
        draw(area.translated(m_part.topLeft()), area.size(), onto.scanLine(corner.y()) + corner.x() * qsizetype{4},
             onto.bytesPerLine());
    } else {
        // The scaler would write beyond the edge.
        QImage piece = roomyPicture(area.size());
        draw(area.translated(m_part.topLeft()), area.size(), piece.bits(), piece.bytesPerLine());
        copyPixels(piece, {}, area, onto, origin);
    }
}

void FramePicture::drawWhole()
{
    m_whole = roomyPicture(m_frame.angle % 180 == 0 ? m_size : m_size.transposed());
    draw(m_part, m_whole.size(), m_whole.bits(), m_whole.bytesPerLine());
    if (m_frame.angle != 0 || m_frame.isMirrored)
        m_whole = turned(m_whole, m_frame.angle, m_frame.isMirrored);
}

void FramePicture::draw(const QRect &part, QSize size, uchar *pixels, qsizetype stride)
{
    constexpr size_t mostScalers = 16;
    if (m_scalers.size() > mostScalers)
        m_scalers.clear();
    auto &scaler = m_scalers[{part.width(), part.height(), size.width(), size.height()}];
    if (!scaler) {
        scaler.reset(sws_getContext(part.width(), part.height(), m_frame.format, size.width(), size.height(),
                                    AV_PIX_FMT_BGR0, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr));
        if (!scaler)
            return;
        setColours(scaler.get(), m_frame);
    }
    const auto planes = planesAt(m_frame, part.topLeft());
    if (m_isDirect)
        fetch(m_frame, part);
    const std::array<uint8_t *, 4> target{pixels};
    const std::array<int, 4> strides{static_cast<int>(stride)};
    sws_scale(scaler.get(), planes.data(), m_frame.strides.data(), 0, part.height(), target.data(), strides.data());
}

}
