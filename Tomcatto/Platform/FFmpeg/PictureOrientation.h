#pragma once

#include <cstdint>

namespace tomcatto {

/// How a stored picture is turned for display: its axes swapped or not, then each mirrored or not. Any turn by a right
/// angle is one of these.
struct PictureOrientation
{
    bool isTransposed = false;
    bool isMirroredInX = false;
    bool isMirroredInY = false;

    bool operator==(const PictureOrientation &) const = default;

    /// The nearest orientation to a video's display matrix: nine 32-bit integers in the machine's byte order.
    [[nodiscard]] static PictureOrientation fromDisplayMatrix(const std::uint8_t *matrix);
};

}
