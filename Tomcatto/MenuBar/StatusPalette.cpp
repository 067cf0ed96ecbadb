#include "MenuBar/StatusPalette.h"

namespace tomcatto {
namespace {

QColor color(QRgb rgb, double alpha = 1)
{
    QColor color = QColor::fromRgb(rgb);
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor lightSolid(StatusPillTone tone)
{
    switch (tone) {
    case StatusPillTone::idle:
    case StatusPillTone::work:
        return color(0xC2571A);
    case StatusPillTone::shortBreak:
        return color(0x3D6FD6);
    case StatusPillTone::longBreak:
        return color(0x2E6B47);
    case StatusPillTone::overtime:
        return color(0x8A5E00);
    }
    return {};
}

QColor lightTint(StatusPillTone tone)
{
    switch (tone) {
    case StatusPillTone::idle:
    case StatusPillTone::work:
        return color(0xEE7A3A, 0.32);
    case StatusPillTone::shortBreak:
        return color(0x3D6FD6, 0.25);
    case StatusPillTone::longBreak:
        return color(0x2E6B47, 0.25);
    case StatusPillTone::overtime:
        return color(0xD6A01E, 0.38);
    }
    return {};
}

QColor darkSolid(StatusPillTone tone)
{
    switch (tone) {
    case StatusPillTone::idle:
    case StatusPillTone::work:
        return color(0xFFB780);
    case StatusPillTone::shortBreak:
        return color(0xADC6FF);
    case StatusPillTone::longBreak:
        return color(0x9FD8B4);
    case StatusPillTone::overtime:
        return color(0xF5C451);
    }
    return {};
}

QColor darkTint(StatusPillTone tone)
{
    switch (tone) {
    case StatusPillTone::idle:
    case StatusPillTone::work:
        return color(0xFFB780, 0.30);
    case StatusPillTone::shortBreak:
        return color(0xADC6FF, 0.28);
    case StatusPillTone::longBreak:
        return color(0x9FD8B4, 0.28);
    case StatusPillTone::overtime:
        return color(0xF5C451, 0.34);
    }
    return {};
}

}

const StatusPalette &StatusPalette::forBar(bool isDark)
{
    static const StatusPalette light{color(0x000000, 0.07), color(0x1D1D1F), color(0x000000, 0.10),
                                     color(0xFFFFFF),       lightSolid,      lightTint};
    static const StatusPalette dark{color(0xFFFFFF, 0.10), color(0xF5F5F7), color(0xFFFFFF, 0.10),
                                    color(0x221B18),       darkSolid,       darkTint};
    return isDark ? dark : light;
}

}
