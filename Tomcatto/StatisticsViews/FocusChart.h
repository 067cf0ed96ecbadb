#pragma once

#include "StatisticsViews/StatisticsSources.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// A range's chart of focus time as a view draws it.
struct FocusChart
{
    QString title;
    /// {value, label, tip, name, today}, values in minutes.
    QVariantList bars;
    /// {value, label}, the base line first.
    QVariantList ticks;
    /// Minutes at the upper edge.
    qreal maximum = 1;
    /// Whether no bar has a height.
    bool isEmpty = true;
};

/// The chart by the clock, calendar and history as they are now.
[[nodiscard]] FocusChart focusChart(const StatisticsSources &sources, StatsRange range, StatisticsForm form);

}
