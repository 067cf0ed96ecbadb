#pragma once

#include "Foundation/Date.h"
#include "Foundation/EnumTexts.h"

#include <QtCore/QTimeZone>

namespace tomcatto {

/// The units that statistics are gathered in.
enum class CalendarUnit { day, weekOfYear, month, year };
template<>
inline constexpr std::array rawValues<CalendarUnit>{"day", "weekOfYear", "month", "year"};

/// The rules by which instants become days and times of day: a time zone, the day a week begins with and how a time is
/// written. Gregorian. A value; any thread.
///
/// Days are calendar dates (`QDate`), so walking over them needs no time-zone conversion and is right on days of 23 and
/// 25 hours and where midnight does not exist. The calendar reaches about two million years each way from 1970; a time
/// zone that is not valid counts as UTC.
struct Calendar
{
    QTimeZone timeZone;
    Qt::DayOfWeek firstWeekday = Qt::Monday;
    /// In the letters of `QLocale::toString`; words in it, such as AM, are those of the locale that writes the time.
    QString timeFormat = QStringLiteral("HH:mm");

    bool operator==(const Calendar &) const = default;

    /// Whether the calendar knows the instant; infinite and undefined instants have no day.
    [[nodiscard]] static bool reaches(Date date);
    /// The calendar date that `date` falls on; an invalid one for an instant that the calendar does not reach.
    [[nodiscard]] QDate dayOf(Date date) const;
    /// The first instant of a calendar date: the first one after the gap where the clocks skip midnight, the earlier
    /// one where midnight comes twice, the start of the next day where the whole date is left out. A day beyond the
    /// calendar's reach counts as its last one.
    [[nodiscard]] Date startOfDay(QDate day) const;
    /// The instants of one calendar date.
    [[nodiscard]] DateInterval dayInterval(QDate day) const;
    /// The instant when the clocks showed that time on that date: the earlier one where they did so twice, nothing
    /// where they skipped it.
    [[nodiscard]] std::optional<Date> instant(QDate day, QTime time) const;
    /// The first date of the unit that contains `day`.
    [[nodiscard]] QDate firstDay(CalendarUnit unit, QDate day) const;
    /// The first date of the unit after the one that contains `day`.
    [[nodiscard]] QDate firstDayAfter(CalendarUnit unit, QDate day) const;
    /// The instants of the unit that contains `day`.
    [[nodiscard]] DateInterval interval(CalendarUnit unit, QDate day) const;
    /// Days from the calendar's first weekday to that of `day`, 0 to 6.
    [[nodiscard]] int weekdayIndex(QDate day) const;
    /// The date before `day` that the zone's clocks have shown: the day before, unless the zone left that out.
    [[nodiscard]] QDate dayBefore(QDate day) const;
    /// Whether `next` follows `day`, at once or after dates that the zone left out.
    [[nodiscard]] bool areConsecutive(QDate day, QDate next) const;
    /// The calendar date `days` after `day` (before it when negative); nothing beyond what the calendar reaches.
    [[nodiscard]] static std::optional<QDate> addingDays(QDate day, qint64 days);
    /// The instant `days` calendar days after `date` (before it when negative), at the same time of day. A date or a
    /// day count beyond what the calendar reaches gives nothing.
    [[nodiscard]] std::optional<Date> addingDays(Date date, qint64 days) const;

private:
    /// Seconds that local time is ahead of UTC at an instant in seconds since 1970.
    [[nodiscard]] qint64 offsetAt(qint64 seconds) const;
    /// The first second after `low`, up to `high`, with another offset than `low` has.
    [[nodiscard]] qint64 offsetChange(qint64 low, qint64 high) const;
};

}
