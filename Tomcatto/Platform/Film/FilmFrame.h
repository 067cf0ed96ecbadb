#pragma once

#include <array>
#include <memory>
#include <QtCore/QSize>

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace tomcatto {

/// One decoded picture of a film. Copies share its memory, which nobody writes to.
struct FilmFrame
{
    QSize size;
    AVPixelFormat format = AV_PIX_FMT_NONE;
    std::array<const uint8_t *, 4> planes{};
    /// Bytes from one row to the next, for each plane.
    std::array<int, 4> strides{};
    /// The colours of standard definition, in place of those of high definition.
    bool isStandard = false;
    /// Whether black is 0, in place of 16.
    bool isFullRange = false;
    /// Degrees, clockwise, by which the stored picture is to be turned after it was mirrored.
    int angle = 0;
    bool isMirrored = false;
    /// Keeps the planes.
    std::shared_ptr<const void> memory;

    [[nodiscard]] bool isValid() const noexcept { return memory != nullptr; }
    /// Whether both are stored alike, so that equal bytes are equal pictures.
    [[nodiscard]] bool isLike(const FilmFrame &other) const noexcept
    {
        return size == other.size && format == other.format && isStandard == other.isStandard &&
               isFullRange == other.isFullRange && angle == other.angle && isMirrored == other.isMirrored;
    }
};

}
