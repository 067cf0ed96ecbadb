#pragma once

#include "StatusPill/StatusPillContent.h"

#include <array>
#include <QtGui/QColor>

namespace tomcatto {

/// The colours of the pill on one kind of bar, in sRGB.
struct StatusPalette
{
    /// Background of the whole pill.
    QColor pill;
    /// Text and pause bars.
    QColor ink;
    /// Progress while paused.
    QColor pausedFill;
    /// Ink on a solid fill.
    QColor onSolid;
    /// Of the tones, in their order.
    std::array<QColor, 5> solids;
    std::array<QColor, 5> tints;

    /// Opaque colour of a tone.
    [[nodiscard]] QColor solid(StatusPillTone tone) const { return solids.at(static_cast<std::size_t>(tone)); }
    /// Translucent colour of a tone.
    [[nodiscard]] QColor tint(StatusPillTone tone) const { return tints.at(static_cast<std::size_t>(tone)); }

    /// The palette for a dark or a light bar. Both are built once and kept.
    [[nodiscard]] static const StatusPalette &forBar(bool isDark);
};

}
