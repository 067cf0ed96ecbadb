#include "Platform/FFmpeg/PictureOrientation.h"

#include <array>
#include <cmath>
#include <cstring>

namespace tomcatto {

PictureOrientation PictureOrientation::fromDisplayMatrix(const std::uint8_t *matrix)
{
    std::array<std::int32_t, 9> values{};
    std::memcpy(values.data(), matrix, sizeof values);
    // A stored point (x, y) is shown at (a x + c y, b x + d y).
    const double a = values[0];
    const double b = values[1];
    const double c = values[3];
    const double d = values[4];
    if (std::abs(a) + std::abs(d) >= std::abs(b) + std::abs(c))
        return {false, a < 0, d < 0};
    return {true, c < 0, b < 0};
}

}
