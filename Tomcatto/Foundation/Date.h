#pragma once

#include <chrono>
#include <cmath>
#include <QtCore/QDateTime>

namespace tomcatto {

/// A span of time in seconds, with fractions.
using Seconds = std::chrono::duration<double>;

/// A wall-clock instant: seconds since 1970 in UTC, with fractions. It only stamps records; durations are measured with
/// the monotonic clock.
using Date = std::chrono::sys_time<Seconds>;

/// The instants from `start` (inclusive) to `end` (exclusive).
struct DateInterval
{
    Date start;
    Date end;

    bool operator==(const DateInterval &) const = default;

    [[nodiscard]] bool contains(Date date) const { return start <= date && date < end; }
};

/// Makes a date from seconds since 1970 in UTC.
[[nodiscard]] inline Date dateFromSeconds(double secondsSince1970)
{
    return Date{Seconds{secondsSince1970}};
}

/// Seconds since 1970 in UTC, with fractions.
[[nodiscard]] inline double secondsSince1970(Date date)
{
    return date.time_since_epoch().count();
}

/// The date as Qt's value in UTC, rounded down to the millisecond.
[[nodiscard]] inline QDateTime toDateTime(Date date)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(secondsSince1970(date) * 1000.0)), Qt::UTC);
}

/// The date of Qt's value, with its milliseconds.
[[nodiscard]] inline Date toDate(const QDateTime &dateTime)
{
    return dateFromSeconds(static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0);
}

/// Internet date and time in UTC to the whole second, rounded down, for example 2025-03-04T08:15:00Z.
[[nodiscard]] inline QString toIso8601(Date date)
{
    return toDateTime(date).toString(Qt::ISODate);
}

}
