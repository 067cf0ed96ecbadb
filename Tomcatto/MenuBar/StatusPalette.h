#pragma once

#include "StatusPill/StatusPillContent.h"

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
    /// Opaque colour of a tone.
    QColor (*solid)(StatusPillTone tone) = nullptr;
    /// Translucent colour of a tone.
    QColor (*tint)(StatusPillTone tone) = nullptr;

    /// The palette for a dark or a light bar. Both are built once and kept.
    [[nodiscard]] static const StatusPalette &forBar(bool isDark);
};

}
