#pragma once

#include "Foundation/HandlerList.h"
#include "Platform/Ports/WallClock.h"
#include "Platform/Posix/SystemCalendar.h"

#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>

namespace tomcatto {

class DayTimer;

/// The system's clock and the user's calendar. The timer and the bus are used from the first subscription on, so a
/// process that only asks for the time pays for neither.
class SystemWallClock final : public QObject, public WallClock
{
    Q_OBJECT

public:
    /// @param systemBus where changes of the time zone are announced; it may be without a connection.
    explicit SystemWallClock(const QDBusConnection &systemBus);
    ~SystemWallClock() override;

    [[nodiscard]] Date now() const override;
    [[nodiscard]] Calendar calendar() const override;
    [[nodiscard]] Cancellable onDayChanged(std::function<void()> changed) override;

private Q_SLOTS:
    void readZoneChange(const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

private:
    void watch();
    void armForMidnight() const;
    void announceDay();

    QDBusConnection m_systemBus;
    mutable SystemCalendar m_calendar;
    /// The zone that the timer was armed in; a change that nobody announced shows up when the calendar is read.
    mutable QTimeZone m_armedZone;
    std::unique_ptr<DayTimer> m_dayTimer;
    HandlerList m_dayChanged;
};

}
