#pragma once

#include "WidgetWindow/WidgetContent.h"

#include <QtGui/QColor>

namespace tomcatto {

/// The colours of the design system that a widget needs, in light or dark. A value.
struct WidgetColours
{
    struct Phase
    {
        QColor solid, text, wash, track;
    };

    QColor paper, sunk, card, line, ink, ink2, controlLine, pausedArc;
    Phase work, shortBreak, longBreak, overtime;

    [[nodiscard]] const Phase &of(WidgetPhase phase) const;
    [[nodiscard]] const Phase &of(const WidgetContent &content) const
    {
        return content.isOverflowing ? overtime : of(content.phase);
    }
};

[[nodiscard]] const WidgetColours &widgetColours(bool isDark);

}
