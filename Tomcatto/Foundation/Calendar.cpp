#include "Foundation/Calendar.h"

namespace tomcatto {

namespace {

constexpr qint64 secondsPerDay = 86'400;
constexpr qint64 furthestDays = 700'000'000;
// No zone is further from UTC than this.
constexpr qint64 furthestOffset = qint64{16} * 3600;

const QDate epochDay(1970, 1, 1);

}

bool Calendar::reaches(Date date)
{
    return std::abs(secondsSince1970(date)) <= static_cast<double>(furthestDays * secondsPerDay);
}

QDate Calendar::dayOf(Date date) const
{
    if (!reaches(date))
        return {};
    const auto instant = static_cast<qint64>(std::floor(secondsSince1970(date)));
    const qint64 local = instant + offsetAt(instant);
    const qint64 day = local / secondsPerDay - (local % secondsPerDay < 0 ? 1 : 0);
    return epochDay.addDays(day);
}

Date Calendar::startOfDay(QDate day) const
{
    const qint64 dayNumber = day.isValid() ? qBound(-furthestDays, epochDay.daysTo(day), furthestDays) : 0;
    const qint64 midnight = dayNumber * secondsPerDay;
    // Local midnight and any change that hides it lie in between. Qt's own start of a day takes the second of two
    // midnights and knows none for a date that a zone leaves out.
    const qint64 before = offsetAt(midnight - furthestOffset);
    const qint64 after = offsetAt(midnight + furthestOffset);
    qint64 start = midnight - before;
    if (before != after) {
        const qint64 change = offsetChange(midnight - furthestOffset, midnight + furthestOffset);
        if (start >= change)
            start = std::max(change, midnight - after);
    }
    return dateFromSeconds(static_cast<double>(start));
}

DateInterval Calendar::dayInterval(QDate day) const
{
    return {startOfDay(day), startOfDay(day.addDays(1))};
}

std::optional<Date> Calendar::instant(QDate day, QTime time) const
{
    const qint64 local = epochDay.daysTo(day) * secondsPerDay + time.msecsSinceStartOfDay() / 1000;
    std::optional<Date> earliest;
    for (const qint64 around : {local + furthestOffset, local - furthestOffset}) {
        const qint64 candidate = local - offsetAt(around);
        if (candidate + offsetAt(candidate) == local)
            earliest = std::min(earliest.value_or(Date::max()), dateFromSeconds(static_cast<double>(candidate)));
    }
    return earliest;
}

QDate Calendar::firstDay(CalendarUnit unit, QDate day) const
{
    switch (unit) {
    case CalendarUnit::day:
        return day;
    case CalendarUnit::weekOfYear:
        return day.addDays(-weekdayIndex(day));
    case CalendarUnit::month:
        return QDate{day.year(), day.month(), 1};
    case CalendarUnit::year:
        return QDate{day.year(), 1, 1};
    }
    return {};
}

QDate Calendar::firstDayAfter(CalendarUnit unit, QDate day) const
{
    const QDate first = firstDay(unit, day);
    switch (unit) {
    case CalendarUnit::day:
        return first.addDays(1);
    case CalendarUnit::weekOfYear:
        return first.addDays(7);
    case CalendarUnit::month:
        return first.addMonths(1);
    case CalendarUnit::year:
        return first.addYears(1);
    }
    return {};
}

DateInterval Calendar::interval(CalendarUnit unit, QDate day) const
{
    return {startOfDay(firstDay(unit, day)), startOfDay(firstDayAfter(unit, day))};
}

int Calendar::weekdayIndex(QDate day) const
{
    return (day.dayOfWeek() - static_cast<int>(firstWeekday) + 7) % 7;
}

QDate Calendar::dayBefore(QDate day) const
{
    const QDate before = day.addDays(-1);
    return startOfDay(before) == startOfDay(day) ? before.addDays(-1) : before;
}

bool Calendar::areConsecutive(QDate day, QDate next) const
{
    const qint64 apart = day.daysTo(next);
    // No zone has left out more than one date at once.
    return apart == 1 || (apart == 2 && dayBefore(next) == day);
}

std::optional<QDate> Calendar::addingDays(QDate day, qint64 days)
{
    if (!day.isValid() || days > furthestDays || days < -furthestDays)
        return std::nullopt;
    const QDate moved = day.addDays(days);
    if (std::abs(epochDay.daysTo(moved)) > furthestDays)
        return std::nullopt;
    return moved;
}

std::optional<Date> Calendar::addingDays(Date date, qint64 days) const
{
    if (!addingDays(dayOf(date), days))
        return std::nullopt;
    const QDateTime moved = toDateTime(date).toTimeZone(timeZone).addDays(days);
    if (!moved.isValid())
        return std::nullopt;
    return toDate(moved);
}

qint64 Calendar::offsetAt(qint64 seconds) const
{
    return timeZone.isValid() ? timeZone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)) : 0;
}

qint64 Calendar::offsetChange(qint64 low, qint64 high) const
{
    const qint64 offset = offsetAt(low);
    while (high - low > 1) {
        const qint64 middle = low + (high - low) / 2;
        if (offsetAt(middle) == offset)
            low = middle;
        else
            high = middle;
    }
    return high;
}

}
