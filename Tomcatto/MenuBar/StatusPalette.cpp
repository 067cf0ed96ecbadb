#include "MenuBar/StatusPalette.h"

namespace tomcatto {
namespace {

QColor color(QRgb rgb, double alpha = 1)
{
    QColor color = QColor::fromRgb(rgb);
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

}

const StatusPalette &StatusPalette::forBar(bool isDark)
{
    static const StatusPalette light{
        color(0x000000, 0.07),
        color(0x1D1D1F),
        color(0x000000, 0.10),
        color(0xFFFFFF),
        {color(0xC2571A), color(0xC2571A), color(0x3D6FD6), color(0x2E6B47), color(0x8A5E00)},
        {color(0xEE7A3A, 0.32), color(0xEE7A3A, 0.32), color(0x3D6FD6, 0.25), color(0x2E6B47, 0.25),
         color(0xD6A01E, 0.38)}};
    static const StatusPalette dark{
        color(0xFFFFFF, 0.10),
        color(0xF5F5F7),
        color(0xFFFFFF, 0.10),
        color(0x221B18),
        {color(0xFFB780), color(0xFFB780), color(0xADC6FF), color(0x9FD8B4), color(0xF5C451)},
        {color(0xFFB780, 0.30), color(0xFFB780, 0.30), color(0xADC6FF, 0.28), color(0x9FD8B4, 0.28),
         color(0xF5C451, 0.34)}};
    return isDark ? dark : light;
}

}
