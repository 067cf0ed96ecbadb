#include "Statistics/StatsRange.h"

namespace tomcatto {

namespace {

constexpr qint64 daysLabelledDaily = 14;
constexpr qint64 daysInDailyBars = 91;
constexpr qint64 daysInMonthlyBars = 1096;

/// The date that all time starts on: the earliest session's, never after today.
QDate historyStart(std::optional<Date> earliestSession, QDate today, const Calendar &calendar)
{
    const QDate earliest = earliestSession ? calendar.dayOf(*earliestSession) : today;
    return earliest.isValid() ? std::min(earliest, today) : today;
}

StatsChartLayout historyLayout(QDate start, QDate today)
{
    const qint64 days = start.daysTo(today);
    if (days >= daysInMonthlyBars)
        return {start, CalendarUnit::year, CalendarUnit::year};
    if (days >= daysInDailyBars)
        return {start, CalendarUnit::month, CalendarUnit::month};
    return {start, CalendarUnit::day, days < daysLabelledDaily ? CalendarUnit::day : CalendarUnit::weekOfYear};
}

}

int daySpan(StatsRange range)
{
    constexpr std::array spans{0, 6, 29, 0};
    return spans.at(static_cast<std::size_t>(range));
}

DateInterval interval(StatsRange range, std::optional<Date> earliestSession, Date now, const Calendar &calendar)
{
    const QDate today = calendar.dayOf(now);
    switch (range) {
    case StatsRange::today:
        return calendar.dayInterval(today);
    case StatsRange::week:
        return calendar.interval(CalendarUnit::weekOfYear, today);
    case StatsRange::month:
        return calendar.interval(CalendarUnit::month, today);
    case StatsRange::allTime:
        break;
    }
    DateInterval all = calendar.dayInterval(today);
    if (earliestSession && *earliestSession < all.end)
        all.start = *earliestSession;
    return all;
}

qint64 dayCount(StatsRange range, std::optional<Date> earliestSession, Date now, const Calendar &calendar)
{
    if (range != StatsRange::allTime)
        return daySpan(range) + 1;
    const QDate today = calendar.dayOf(now);
    return historyStart(earliestSession, today, calendar).daysTo(today) + 1;
}

StatsChartLayout chartLayout(StatsRange range, std::optional<Date> earliestSession, Date now, const Calendar &calendar)
{
    const QDate today = calendar.dayOf(now);
    const QDate start = Calendar::addingDays(today, -daySpan(range)).value_or(today);
    switch (range) {
    case StatsRange::today:
    case StatsRange::week:
        return {start, CalendarUnit::day, CalendarUnit::day};
    case StatsRange::month:
        return {start, CalendarUnit::day, CalendarUnit::weekOfYear};
    case StatsRange::allTime:
        break;
    }
    return historyLayout(historyStart(earliestSession, today, calendar), today);
}

}
