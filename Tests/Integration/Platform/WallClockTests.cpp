#include "Platform/Freedesktop/SystemWallClock.h"
#include "PrivateBus.h"

#include <gtest/gtest.h>
#include <QtDBus/QDBusMessage>
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

    PrivateBus m_bus;
    SystemWallClock m_clock{m_bus.connection()};
};

}

TEST_F(WallClockTests, TheCalendarFollowsZoneAndLocaleAtRunTime)
{
    const std::tuple<const char *, const char *, const char *, QTimeZone, Qt::DayOfWeek> cases[] = {
        {"LANG", "de_DE.UTF-8", "Asia/Kathmandu", QTimeZone("Asia/Kathmandu"), Qt::Monday},
        {"LC_TIME", "en_US.UTF-8", "America/New_York", QTimeZone("America/New_York"), Qt::Sunday},
        {"LC_ALL", "ar_EG", "UTC", QTimeZone("UTC"), Qt::Saturday},
        {"LC_ALL", "C.UTF-8", "Europe/Paris", QTimeZone("Europe/Paris"), Qt::Monday}};
    for (const auto &[variable, locale, zoneName, zone, weekday] : cases) {
        qputenv(variable, locale);
        qputenv("TZ", zoneName);
        EXPECT_EQ(m_clock.calendar(), (Calendar{zone, weekday})) << locale;
    }
}

TEST_F(WallClockTests, TellsOnceWhenADayBegins)
{
    qputenv("TZ", zoneNearMidnight());
    const QDate before = m_clock.calendar().dayOf(m_clock.now());
    std::vector<QDate> days;
    const Cancellable handler = m_clock.onDayChanged([&] { days.push_back(m_clock.calendar().dayOf(m_clock.now())); });
    QTest::qWait(3500);
    EXPECT_EQ(days, std::vector{before.addDays(1)});
}

TEST_F(WallClockTests, TellsWhenTheZoneIsChanged)
{
    int changes = 0;
    const Cancellable handler = m_clock.onDayChanged([&changes] { ++changes; });
    QDBusConnection service = m_bus.connection();
    const QString name = QStringLiteral("org.freedesktop.timedate1");
    ASSERT_TRUE(service.registerService(name));
    for (const QString &property : {QStringLiteral("NTP"), QStringLiteral("Timezone")}) {
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/timedate1"),
                                                         QStringLiteral("org.freedesktop.DBus.Properties"),
                                                         QStringLiteral("PropertiesChanged"));
        service.send(signal << name << QVariantMap{{property, true}} << QStringList());
    }
    EXPECT_TRUE(QTest::qWaitFor([&changes] { return changes > 0; }));
    EXPECT_EQ(changes, 1);
}
