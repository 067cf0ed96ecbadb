#include "FramePicture.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <QtGui/QTransform>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace tomcatto {
namespace {

/// Pixels of an area that is compared by itself: small enough that most of them stand still in a quiet film, but not so
/// small that what differs falls to pieces, each of which costs something.
constexpr QSize comparedSize{32, 36};
/// The same of a picture that is not painted pixel by pixel, as each area is made of more than what it covers.
constexpr QSize comparedScaledSize{128, 72};

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

template<size_t size>
bool isOther(const uint8_t *before, const uint8_t *after)
{
    uint64_t bits = 0;
    for (size_t at = 0; at < size; at += sizeof bits) {
        uint64_t old = 0;
        uint64_t recent = 0;
        std::memcpy(&old, before + at, sizeof old);
        std::memcpy(&recent, after + at, sizeof recent);
        bits |= old ^ recent;
    }
    return bits != 0;
}

/// Whether some bytes differ; fastest for the sizes that there are most of.
bool isOther(const uint8_t *before, const uint8_t *after, size_t size)
{
    constexpr size_t most = comparedSize.width();
    if (size == most)
        return isOther<most>(before, after);
    if (size == most / 2)
        return isOther<most / 2>(before, after);
    return std::memcmp(before, after, size) != 0;
}

/// For each of some areas side by side, 1 if it differs, else 0; compared row by row, for memory is read fastest in its
/// own order.
std::vector<char> compare(const FilmFrame &before, const FilmFrame &after, const std::vector<QRect> &areas)
{
    std::vector<char> differ(areas.size());
    std::vector<std::pair<int, size_t>> spans(areas.size());
    const auto planes = layoutOf(after.format);
    for (size_t plane = 0; plane < planes.size(); ++plane) {
        const PlaneLayout &layout = planes.at(plane);
        std::ranges::transform(areas, spans.begin(), [&](const QRect &area) {
            const int from = area.left() >> layout.columnShift;
            const int size = (area.right() >> layout.columnShift) + 1 - from;
            return std::pair{from * layout.bytes, static_cast<size_t>(size) * layout.bytes};
        });
        const int end = layout.bytes > 0 ? (areas.front().bottom() >> layout.rowShift) + 1 : 0;
        for (int row = areas.front().top() >> layout.rowShift; row < end; ++row) {
            const uint8_t *old = before.planes.at(plane) + qsizetype{row} * before.strides.at(plane);
            const uint8_t *recent = after.planes.at(plane) + qsizetype{row} * after.strides.at(plane);
            for (size_t index = 0; index < spans.size(); ++index) {
                const auto &[from, size] = spans[index];
                if (differ[index] == 0)
                    differ[index] = isOther(old + from, recent + from, size) ? 1 : 0;
            }
        }
    }
    return differ;
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

/// An area and the pixels beside its edges that share a colour with one of its own.
QRect wholePairs(const QRect &area)
{
    return {QPoint(area.left() & ~1, area.top() & ~1), QPoint(area.right() | 1, area.bottom() | 1)};
}

/// Pixels that the scaler writes at once; it does not ask whether all of them are wanted.
constexpr int block = 32;

/// A picture whose rows have room for whole blocks of pixels.
QImage roomyPicture(QSize size)
{
    const qsizetype stride = qsizetype{size.width() + block - 1} / block * block * 4;
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

std::vector<QRect> FramePicture::changes() const
{
    const QRect whole(QPoint(), m_size);
    if (!m_before.isValid())
        return {whole};
    const QSize step = m_isDirect ? comparedSize : comparedScaledSize;
    std::vector<QRect> areas;
    for (int top = 0; top < m_size.height(); top += step.height()) {
        const QRect band = QRect(0, top, m_size.width(), step.height()) & whole;
        const std::vector<char> differ = changes(band, step.width());
        // What is to both sides of two areas that stand still, or one, goes together with them.
        constexpr int gap = 3;
        int last = -gap - 1;
        for (int index = 0; index < std::ssize(differ); ++index) {
            if (differ[static_cast<size_t>(index)] == 0)
                continue;
            const QRect area(index * step.width(), top, step.width(), band.height());
            if (index - last <= gap)
                areas.back().setRight(area.right());
            else
                areas.push_back(area);
            last = index;
        }
        if (!areas.empty())
            areas.back() &= whole;
    }
    return areas;
}

std::vector<char> FramePicture::changes(const QRect &band, int width) const
{
    std::vector<QRect> sources;
    const bool isUpright = m_frame.angle == 0 && !m_frame.isMirrored;
    for (int left = 0; left < band.width(); left += width) {
        const QRect area = QRect(left, band.top(), width, band.height()) & band;
        if (m_isDirect)
            sources.push_back(area.translated(m_part.topLeft()));
        else
            sources.push_back(isUpright ? sourceOf(area, m_part, m_size) : m_part);
    }
    return compare(m_before, m_frame, sources);
}

void FramePicture::paint(const QRect &area, QImage &onto, QPoint origin)
{
    if (m_isDirect)
        return paintDirect(area, onto, origin);
    if (m_whole.isNull())
        drawWhole();
    copyPixels(m_whole, area.topLeft(), area, onto, origin);
}

void FramePicture::paintDirect(const QRect &area, QImage &onto, QPoint origin)
{
    constexpr int widest = 1024;
    const QRect whole = wholePairs(area);
    QImage piece;
    if (whole != area || whole.width() % block != 0)
        piece = roomyPicture(whole.size());
    const QPoint corner = piece.isNull() ? origin + whole.topLeft() : QPoint();
    QImage &target = piece.isNull() ? onto : piece;
    // In few widths, as there is a scaler for each.
    for (int left = whole.left(); left <= whole.right();) {
        const int rest = whole.right() + 1 - left;
        const int width = rest < block ? rest : std::min<int>(std::bit_floor(unsigned(rest)), widest);
        const QRect part(left, whole.top(), width, whole.height());
        draw(part.translated(m_part.topLeft()), part.size(),
             target.scanLine(corner.y()) + (corner.x() + left - whole.left()) * qsizetype{4}, target.bytesPerLine());
        left += width;
    }
    if (!piece.isNull())
        copyPixels(piece, area.topLeft() - whole.topLeft(), area, onto, origin);
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
    // Where nothing is scaled, one serves for all heights.
    const int from = m_isDirect ? m_part.height() : part.height();
    const int to = m_isDirect ? m_part.height() : size.height();
    auto &scaler = m_scalers[{part.width(), from, size.width(), to}];
    if (!scaler) {
        scaler.reset(sws_getContext(part.width(), from, m_frame.format, size.width(), to, AV_PIX_FMT_BGR0,
                                    SWS_FAST_BILINEAR, nullptr, nullptr, nullptr));
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
