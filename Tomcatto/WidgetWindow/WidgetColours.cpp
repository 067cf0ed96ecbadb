#include "WidgetWindow/WidgetColours.h"

namespace tomcatto {

const WidgetColours::Phase &WidgetColours::of(WidgetPhase phase) const
{
    switch (phase) {
    case WidgetPhase::idle:
    case WidgetPhase::work:
        return work;
    case WidgetPhase::shortBreak:
        return shortBreak;
    case WidgetPhase::longBreak:
        return longBreak;
    }
    return work;
}

const WidgetColours &widgetColours(bool isDark)
{
    static const WidgetColours light{0xFBF7F2,
                                     0xF4EDE5,
                                     0xFFFFFF,
                                     0xEADFD4,
                                     0x1D1D1F,
                                     0x6B5E55,
                                     0x95836F,
                                     0x7A6C61,
                                     {0xC2571A, 0xA84A12, 0xFDEFE5, 0xF7CFB7},
                                     {0x3D6FD6, 0x2F5FC4, 0xEAF0FC, 0xCCD5EB},
                                     {0x2E6B47, 0x2E6B47, 0xE6F1EA, 0xC8D4C7},
                                     {0xD6A01E, 0x7D5500, 0xFBF2DC, 0xEDD6A1}};
    static const WidgetColours dark{0x221B18,
                                    0x1B1512,
                                    0x2C2420,
                                    0x3D332D,
                                    0xF5F5F7,
                                    0xC0B3AA,
                                    0x8B7B70,
                                    0xA6988E,
                                    {0xFFB780, 0xFFB780, 0x39291F, 0x644A37},
                                    {0xADC6FF, 0xADC6FF, 0x2C2D36, 0x494B59},
                                    {0x9FD8B4, 0x9FD8B4, 0x2A322B, 0x455044},
                                    {0xF5C451, 0xF5C451, 0x3A2F1C, 0x6A542B}};
    return isDark ? dark : light;
}

}
