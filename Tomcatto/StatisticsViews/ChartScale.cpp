#include "StatisticsViews/ChartScale.h"

#include <algorithm>

namespace tomcatto {
namespace {

constexpr qint64 minuteSteps[] = {5, 10, 15, 30, 60, 120, 180, 240};
/// From here on the axis tells hours.
constexpr qint64 hoursFrom = 600;

}

ChartScale chartScale(qint64 peak)
{
    ChartScale scale{minuteSteps[0], 0, peak >= hoursFrom};
    if (scale.isInHours) {
        // 1, 2, 5, 10, 20, 50 … hours; the quotient keeps far from overflow.
        const qint64 half = peak / 2;
        qint64 unit = 60;
        while (half / unit >= 10)
            unit *= 10;
        const qint64 multiple = half / unit;
        scale.step = unit * (multiple >= 5 ? 5 : multiple >= 2 ? 2 : 1);
    } else {
        for (const qint64 step : minuteSteps)
            scale.step = 2 * step <= peak ? step : scale.step;
    }
    scale.maximum = std::max(peak, 2 * scale.step);
    return scale;
}

ChartScale chartScaleAbove(qint64 peak)
{
    const auto scale = [](qint64 step) { return ChartScale{step, 3 * step, step >= 60}; };
    const qint64 least = peak / 3 + (peak % 3 > 0 ? 1 : 0);
    for (const qint64 step : {5, 10, 20, 30, 60, 120, 180, 300}) {
        if (step >= least)
            return scale(step);
    }
    // 10, 20, 50, 100 … hours; the quotient keeps far from overflow.
    qint64 unit = 600;
    while (unit < least / 5)
        unit *= 10;
    return scale(unit >= least ? unit : 2 * unit >= least ? 2 * unit : unit * 5 >= least ? 5 * unit : 10 * unit);
}

}
