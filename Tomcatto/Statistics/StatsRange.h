#pragma once

#include "Statistics/StatsChartLayout.h"

namespace tomcatto {

/// The period that the statistics are shown for.
enum class StatsRange { today, week, month, allTime };
template<>
inline constexpr std::array rawValues<StatsRange>{"today", "week", "month", "allTime"};

/// Every range, shortest first.
inline constexpr std::array allStatsRanges{StatsRange::today, StatsRange::week, StatsRange::month, StatsRange::allTime};

/// How many days before today the range's chart starts: 0, 6 or 29. 0 for `allTime`, whose start is the history's.
[[nodiscard]] int daySpan(StatsRange range);

/// The instants of the range: the current day, calendar week or calendar month, or all from the earliest session to the
/// end of today. Without an earlier session `allTime` is today.
[[nodiscard]] DateInterval interval(StatsRange range, std::optional<Date> earliestSession, Date now,
                                    const Calendar &calendar);

/// Over how many days the range's daily average goes, today included: 1, 7, 30, or those since the earliest session.
/// At least 1.
[[nodiscard]] qint64 dayCount(StatsRange range, std::optional<Date> earliestSession, Date now,
                              const Calendar &calendar);

/// The range's chart. Over all time the bars get wider with the history: days, from 91 days on months, from 1096 years.
[[nodiscard]] StatsChartLayout chartLayout(StatsRange range, std::optional<Date> earliestSession, Date now,
                                           const Calendar &calendar);

}
