#include "Foundation/Calendar.h"

#include <gtest/gtest.h>
#include <limits>

namespace tomcatto {
namespace {

Date utc(const char *text)
{
    return toDate(QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate));
}

QDate day(const char *text)
{
    return QDate::fromString(QString::fromLatin1(text), Qt::ISODate);
}

TEST(Calendar, KnowsWhereDaysBeginAndHowLongTheyAre)
{
    const struct
    {
        const char *zone, *day, *start;
        double hours;
    } cases[] = {
        {"Asia/Kathmandu", "2025-01-01", "2024-12-31T18:15:00Z", 24},
        {"Europe/Berlin", "2024-03-31", "2024-03-30T23:00:00Z", 23},
        {"Europe/Berlin", "2024-10-27", "2024-10-26T22:00:00Z", 25},
        {"Australia/Lord_Howe", "2024-04-07", "2024-04-06T13:00:00Z", 24.5},
        // The clocks skip midnight.
        {"America/Sao_Paulo", "2018-11-04", "2018-11-04T03:00:00Z", 23},
        {"Africa/Cairo", "2024-04-26", "2024-04-25T22:00:00Z", 23},
        // The last hour before midnight comes twice, or midnight itself.
        {"America/Sao_Paulo", "2018-02-17", "2018-02-17T02:00:00Z", 25},
        {"America/Havana", "2024-11-03", "2024-11-03T04:00:00Z", 25},
        // A date that was left out.
        {"Pacific/Apia", "2011-12-30", "2011-12-30T10:00:00Z", 0},
    };
    for (const auto &[zone, text, start, hours] : cases) {
        SCOPED_TRACE(std::string(zone) + ' ' + text);
        const Calendar calendar{QTimeZone(zone), Qt::Monday};
        const DateInterval interval = calendar.dayInterval(day(text));
        EXPECT_EQ(toIso8601(interval.start).toStdString(), start);
        EXPECT_EQ((interval.end - interval.start).count(), hours * 3600);
        if (hours > 0) {
            EXPECT_EQ(calendar.dayOf(interval.start), day(text));
            EXPECT_EQ(calendar.dayOf(interval.end - Seconds(0.001)), day(text));
            EXPECT_EQ(calendar.dayOf(interval.start - Seconds(0.001)), day(text).addDays(-1));
        }
    }
}

TEST(Calendar, KnowsTheInstantOfALocalTime)
{
    struct Case
    {
        const char *zone;
        const char *local;
        const char *instant;
    };
    for (const auto &[zone, local, instant] : {
             Case{"Europe/Berlin", "2026-11-21T09:30", "2026-11-21T08:30:00Z"},
             {"Europe/Berlin", "2026-03-29T01:59", "2026-03-29T00:59:00Z"},
             {"Europe/Berlin", "2026-03-29T02:00", nullptr},
             {"Europe/Berlin", "2026-03-29T02:59", nullptr},
             {"Europe/Berlin", "2026-03-29T03:00", "2026-03-29T01:00:00Z"},
             {"Europe/Berlin", "2026-10-25T02:30", "2026-10-25T00:30:00Z"},
             {"America/New_York", "2026-11-01T01:30", "2026-11-01T05:30:00Z"},
             {"Pacific/Apia", "2011-12-30T12:00", nullptr},
             {"Pacific/Kiritimati", "1969-12-31T23:59", "1970-01-01T10:39:00Z"},
             {"", "0001-01-01T00:00", "0001-01-01T00:00:00Z"},
         }) {
        const QString text = QString::fromLatin1(local);
        const auto found =
            Calendar{QTimeZone(zone)}.instant(day(local), QTime::fromString(text.mid(11), QStringLiteral("HH:mm")));
        EXPECT_EQ(found ? toIso8601(*found) : QString(), QString::fromLatin1(instant)) << zone << ' ' << local;
    }
}

TEST(Calendar, MovesByDaysAndKnowsItsReach)
{
    const Calendar berlin{QTimeZone("Europe/Berlin"), Qt::Monday};
    // The same time of day, across the change of the clocks and across a leap day.
    EXPECT_EQ(berlin.addingDays(utc("2024-03-30T11:00:00Z"), 1), utc("2024-03-31T10:00:00Z"));
    EXPECT_EQ(berlin.addingDays(utc("2024-03-01T11:00:00Z"), -1), utc("2024-02-29T11:00:00Z"));
    EXPECT_EQ(Calendar::addingDays(day("2025-01-01"), -36500), day("1925-01-26"));

    using Days = std::numeric_limits<qint64>;
    using Instants = std::numeric_limits<double>;
    for (const qint64 days : {Days::max(), Days::min(), qint64{700'000'000}}) {
        EXPECT_FALSE(berlin.addingDays(utc("2024-03-30T11:00:00Z"), days)) << days;
        EXPECT_FALSE(Calendar::addingDays(day("2024-03-30"), days)) << days;
    }
    for (const double seconds : {Instants::infinity(), -1e300, Instants::quiet_NaN()}) {
        EXPECT_FALSE(berlin.dayOf(dateFromSeconds(seconds)).isValid()) << seconds;
        EXPECT_FALSE(berlin.addingDays(dateFromSeconds(seconds), 1)) << seconds;
    }
}

}
}
