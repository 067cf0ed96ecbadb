#include "Platform/Linux/TimerfdDayTimer.h"
#include "Platform/Posix/CheckingDayTimer.h"
#include "Platform/Posix/SystemWallClock.h"

#include <gtest/gtest.h>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;

namespace {

class WallClockTests : public testing::Test
{
protected:
    ~WallClockTests() override
    {
        for (const char *variable : {"TZ", "LC_ALL", "LC_TIME", "LANG"})
            qunsetenv(variable);
    }

    /// A zone rule whose next midnight comes in two to three seconds.
    [[nodiscard]] static QByteArray zoneNearMidnight()
    {
        const auto untilMidnight = static_cast<int>(86'400 - (QDateTime::currentSecsSinceEpoch() + 3) % 86'400);
        // East of Greenwich the rule's sign is negative.
        const bool isEast = untilMidnight <= 43'200;
        const QTime offset = QTime(0, 0).addSecs(isEast ? untilMidnight : 86'400 - untilMidnight);
        return (isEast ? "TST-" : "TST") + offset.toString(Qt::ISODate).toLatin1();
    }

    SystemWallClock m_clock{[] { return std::make_unique<TimerfdDayTimer>(); }};
};

}

TEST_F(WallClockTests, TheCalendarFollowsZoneAndLocaleAtRunTime)
{
    const QTemporaryDir folder;
    const QByteArray link = folder.filePath(QStringLiteral("localtime")).toUtf8();
    ASSERT_TRUE(QFile::link(QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo"), QString::fromUtf8(link)));
    const std::tuple<const char *, const char *, QByteArray, Calendar> cases[] = {
        {"LANG", "de_DE.UTF-8", "Asia/Kathmandu", {QTimeZone("Asia/Kathmandu"), Qt::Monday, QStringLiteral("HH:mm")}},
        {"LC_TIME",
         "en_US.UTF-8",
         "America/New_York",
         {QTimeZone("America/New_York"), Qt::Sunday, QStringLiteral("h:mm AP")}},
        {"LC_ALL", "ar_EG", link, {QTimeZone("Asia/Tokyo"), Qt::Saturday, QStringLiteral("h:mm AP")}},
        {"LC_ALL", "C", "/etc/hostname", {QTimeZone::utc(), Qt::Monday, QStringLiteral("HH:mm")}},
        {"LC_ALL", "C.UTF-8", "Europe/Paris", {QTimeZone("Europe/Paris"), Qt::Monday, QStringLiteral("HH:mm")}}};
    for (const auto &[variable, locale, zoneName, calendar] : cases) {
        qputenv(variable, locale);
        qputenv("TZ", zoneName);
        EXPECT_EQ(m_clock.calendar(), calendar) << locale;
    }
}

TEST_F(WallClockTests, TellsOnceWhenADayBegins)
{
    qputenv("TZ", zoneNearMidnight());
    const QDate before = m_clock.calendar().dayOf(m_clock.now());
    SystemWallClock lookingClock{[] { return std::make_unique<CheckingDayTimer>(); }};
    std::vector<QDate> days;
    const auto note = [&] { days.push_back(m_clock.calendar().dayOf(m_clock.now())); };
    const Cancellable handlers[] = {m_clock.onDayChanged(note), lookingClock.onDayChanged(note)};
    QTest::qWait(3500);
    EXPECT_EQ(days, std::vector(2, before.addDays(1))) << "once each, by either timer";
}
