#pragma once

#include <QtCore/QtGlobal>

namespace tomcatto {

/// The value axis of a focus chart: the base line and two lines above it at round values.
struct ChartScale
{
    /// Minutes from one line to the next.
    qint64 step = 0;
    /// Minutes at the upper edge.
    qint64 maximum = 0;
    /// Whether the lines are told in hours; `step` is whole hours then.
    bool isInHours = false;

    bool operator==(const ChartScale &) const = default;
};

/// The scale for a highest bar of `peak` minutes; negative counts as 0.
[[nodiscard]] ChartScale chartScale(qint64 peak);

/// The same for a chart with three lines above the base, the uppermost at the edge and not below the highest bar.
[[nodiscard]] ChartScale chartScaleAbove(qint64 peak);

}
