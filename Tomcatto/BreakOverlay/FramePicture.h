#pragma once

#include "Platform/Film/FilmFrame.h"

#include <map>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <vector>

struct SwsContext;

namespace tomcatto {

/// The picture of a film: fills a size, cropped to it. A frame can be compared with the one before, for most of a quiet
/// film stands still, and any area is painted by itself, straight from the decoder's memory to where it is shown.
/// One thread at a time.
class FramePicture final
{
public:
    /// The frame that is painted from now on, a valid one. @param size of the picture, in device pixels
    void setFrame(const FilmFrame &frame, QSize size);
    [[nodiscard]] const FilmFrame &frame() const noexcept { return m_frame; }
    [[nodiscard]] QSize size() const noexcept { return m_size; }
    /// The areas that look otherwise than they did with the frame before; the whole picture when that was of another
    /// kind.
    [[nodiscard]] std::vector<QRect> changes() const;
    /// Paints an area of the picture. @param onto pixels of 32 bits @param origin of the picture there
    void paint(const QRect &area, QImage &onto, QPoint origin);

private:
    struct Free
    {
        void operator()(SwsContext *context) const;
    };

    // For each area so wide of a band, 1 if it looks otherwise, else 0.
    [[nodiscard]] std::vector<char> changes(const QRect &band, int width) const;
    void paintDirect(const QRect &area, QImage &onto, QPoint origin);
    void draw(const QRect &part, QSize size, uchar *pixels, qsizetype stride);
    void drawWhole();

    FilmFrame m_before;
    FilmFrame m_frame;
    QSize m_size;
    // Of the frame, as it is stored, what the picture shows.
    QRect m_part;
    // Whether a pixel of the picture is one of the frame, so that areas can be painted by themselves.
    bool m_isDirect = false;
    std::map<std::array<int, 4>, std::unique_ptr<SwsContext, Free>> m_scalers;
    // The picture of this frame where it is turned or scaled; null until it is asked for.
    QImage m_whole;
};

}
