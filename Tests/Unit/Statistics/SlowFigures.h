#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Statistics/DailyStat.h"
#include "Statistics/FocusBucket.h"

#include <cstdlib>
#include <ctime>
#include <map>
#include <vector>

namespace tomcatto {

/// The figures by plain counting: the C library's local time (the variable TZ) for every phase, maps, and walks from
/// day to day. Shares no arithmetic with the statistics it is compared with. Units are 'd', 'w', 'm' and 'y'.
struct SlowFigures
{
    using Day = std::chrono::sys_days;
    using days = std::chrono::days;

    static Day dayOf(double seconds)
    {
        const auto instant = static_cast<time_t>(std::floor(seconds));
        tm parts{};
        localtime_r(&instant, &parts);
        return std::chrono::year(parts.tm_year + 1900) / (parts.tm_mon + 1) / parts.tm_mday;
    }
    static double startOfDay(Day day)
    {
        double low = static_cast<double>(day.time_since_epoch().count()) * 86'400 - 100'000;
        double high = low + 200'000;
        while (high - low > 1) {
            const double middle = std::floor((low + high) / 2);
            (dayOf(middle) < day ? low : high) = middle;
        }
        return high;
    }
    static QDate date(Day day) { return QDate(1970, 1, 1).addDays(day.time_since_epoch().count()); }

    SlowFigures(const std::vector<CompletedWorkStamp> &stamps, double now, int weekday)
        : today(dayOf(now))
        , firstWeekday(weekday)
    {
        for (const CompletedWorkStamp &stamp : stamps) {
            const Day day = dayOf(secondsSince1970(stamp.startedAt));
            counts[day] += 1;
            seconds[day] += stamp.actualSeconds;
        }
    }
    Day unitStart(char unit, Day day) const
    {
        const std::chrono::year_month_day parts(day);
        if (unit == 'm' || unit == 'y')
            return parts.year() / (unit == 'y' ? std::chrono::January : parts.month()) / 1;
        while (unit == 'w' && std::chrono::weekday(day).iso_encoding() != static_cast<unsigned>(firstWeekday))
            day -= days(1);
        return day;
    }
    /// The sum over the days of today's unit.
    qint64 sumIn(char unit, const std::map<Day, qint64> &values) const
    {
        qint64 sum = 0;
        for (const auto &[day, value] : values)
            sum += unitStart(unit, day) == unitStart(unit, today) ? value : 0;
        return sum;
    }
    qint64 runEndingOn(Day day) const { return counts.contains(day) ? 1 + runEndingOn(day - days(1)) : 0; }
    qint64 bestStreak() const
    {
        qint64 best = 0;
        for (const auto &[day, number] : counts)
            best = std::max(best, runEndingOn(day));
        return best;
    }
    std::vector<DailyStat> dailyStats(int daysBack) const
    {
        std::vector<DailyStat> stats;
        for (Day day = today - days(daysBack); day <= today; day += days(1))
            stats.push_back({date(day), counts.contains(day) ? counts.at(day) : 0});
        return stats;
    }
    std::vector<FocusBucket> buckets(Day start, char unit) const
    {
        std::map<Day, qint64> sums;
        for (Day day = unitStart(unit, start); day <= today; day += days(1))
            sums[unitStart(unit, day)] += 0;
        for (const auto &[day, value] : seconds) {
            if (sums.contains(unitStart(unit, day)))
                sums[unitStart(unit, day)] += value;
        }
        std::vector<FocusBucket> list;
        for (const auto &[day, sum] : sums)
            list.push_back({date(day), sum / 60});
        return list;
    }
    std::vector<std::vector<qint64>> heatmap(int weeks) const
    {
        std::vector grid(7, std::vector<qint64>(static_cast<std::size_t>(weeks)));
        const Day firstWeek = unitStart('w', today) - days(7 * (weeks - 1));
        for (const auto &[day, number] : counts) {
            const auto cell = static_cast<std::size_t>((day - firstWeek).count());
            if (day >= firstWeek && day <= today)
                grid[cell % 7][cell / 7] = number;
        }
        return grid;
    }

    std::map<Day, qint64> counts;
    std::map<Day, qint64> seconds;
    Day today;
    int firstWeekday;
};

}
