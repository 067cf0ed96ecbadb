#pragma once

#include "Foundation/Calendar.h"

namespace tomcatto {

/// What the focus chart of a range shows: from which date on, one bar for which unit, a label for which unit.
struct StatsChartLayout
{
    QDate start;
    CalendarUnit bucketUnit = CalendarUnit::day;
    CalendarUnit strideUnit = CalendarUnit::day;

    bool operator==(const StatsChartLayout &) const = default;
};

}
