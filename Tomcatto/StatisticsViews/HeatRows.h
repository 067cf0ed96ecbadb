#pragma once

#include "StatisticsViews/StatisticsSources.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The last weeks, day by day, as a view draws them.
struct HeatRows
{
    /// How many weeks, the current one last.
    static constexpr int weeks = 16;

    QString title;
    /// By column, then by row: {level, name, tip, today}; level 0 to 4, -1 for days to come.
    QVariantList cells;
    /// One to a row; the panel names every other day.
    QStringList dayLabels;
    /// {column, text}: where a month begins.
    QVariantList monthLabels;
};

/// The rows by the clock, calendar, history and goal as they are now.
[[nodiscard]] HeatRows heatRows(const StatisticsSources &sources, StatisticsForm form);

}
