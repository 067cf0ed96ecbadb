#pragma once

#include <QtGui/QFont>

namespace tomcatto {

/// Measures of the pill in logical pixels, and its fonts.
struct StatusMetrics
{
    static constexpr int height = 24;
    /// Left and right of everything.
    static constexpr int padding = 10;
    /// Before each element after the logo.
    static constexpr int gap = 4;
    static constexpr double pauseBarWidth = 2.5;
    static constexpr double pauseBarHeight = 8;
    /// From one bar's left edge to the other's.
    static constexpr double pauseBarStep = 4.5;
    static constexpr double pauseWidth = pauseBarStep + pauseBarWidth;
    /// The cup as drawn, without the room around it in its square.
    static constexpr double symbolWidth = 14.5;
    static constexpr double symbolHeight = 11.5;
    static constexpr int fontPixelSize = 13;
    /// Height of the logo in capital heights of the reference font.
    static constexpr double logoCapitals = 1.95;

    /// Bold, in a family whose digits are equally wide, so that a ticking time keeps its place.
    [[nodiscard]] static const QFont &textFont();
    /// Of a logo beside regular text of the same size, in whole pixels.
    [[nodiscard]] static int logoHeight();
    /// Of the text, from the top; whole, so that the digits' feet are sharp and as high at every scale.
    [[nodiscard]] static int baseline();
};

}
