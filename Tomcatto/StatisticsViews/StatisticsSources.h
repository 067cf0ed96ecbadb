#pragma once

#include "Localization/LocalizedStrings.h"
#include "Statistics/StatsAggregator.h"
#include "Timer/PomodoroSettings.h"

namespace tomcatto {

class SessionExport;

/// What the views of statistics come from; everything outlives them.
struct StatisticsSources
{
    const StatsAggregator &aggregator;
    const PomodoroSettings &settings;
    const LocalizedStrings &strings;
    WallClock &wallClock;
    SessionExport &sessionExport;

    /// The current day in the user's calendar.
    [[nodiscard]] QDate today() const { return wallClock.calendar().dayOf(wallClock.now()); }
    /// A day in words, such as "Tuesday 18 November".
    [[nodiscard]] QString dayText(QDate day) const
    {
        return strings.locale().toString(day, strings.text(QStringLiteral("date.weekday_day_month")));
    }
};

/// Where they are shown: the panel has room for less.
enum class StatisticsForm { panel, page };

}
