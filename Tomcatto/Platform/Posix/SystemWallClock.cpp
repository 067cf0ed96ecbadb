#include "Platform/Posix/SystemWallClock.h"

#include "Platform/Linux/DayTimer.h"

#include <chrono>

namespace tomcatto {

SystemWallClock::SystemWallClock(const QDBusConnection &systemBus)
    : m_systemBus(systemBus)
{
}

SystemWallClock::~SystemWallClock() = default;

Date SystemWallClock::now() const
{
    return Date(std::chrono::system_clock::now());
}

Calendar SystemWallClock::calendar() const
{
    Calendar calendar = m_calendar.current();
    if (m_dayTimer && calendar.timeZone != m_armedZone)
        armForMidnight();
    return calendar;
}

Cancellable SystemWallClock::onDayChanged(std::function<void()> changed)
{
    if (!m_dayTimer)
        watch();
    return m_dayChanged.add(std::move(changed));
}

void SystemWallClock::watch()
{
    if (m_systemBus.isConnected()) {
        m_systemBus.connect(QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
                            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                            this, SLOT(readZoneChange(QString, QVariantMap, QStringList)));
    }
    m_dayTimer = std::make_unique<DayTimer>();
    connect(m_dayTimer.get(), &DayTimer::fired, this, &SystemWallClock::announceDay);
    armForMidnight();
}

void SystemWallClock::armForMidnight() const
{
    const Calendar &calendar = m_calendar.current();
    m_armedZone = calendar.timeZone;
    m_dayTimer->arm(calendar.startOfDay(calendar.dayOf(now()).addDays(1)));
}

void SystemWallClock::announceDay()
{
    armForMidnight();
    m_dayChanged.call();
}

void SystemWallClock::readZoneChange(const QString &interface, const QVariantMap &changed,
                                     const QStringList &invalidated)
{
    const QString zone = QStringLiteral("Timezone");
    if (interface == QLatin1String("org.freedesktop.timedate1") &&
        (changed.contains(zone) || invalidated.contains(zone)))
        announceDay();
}

}
