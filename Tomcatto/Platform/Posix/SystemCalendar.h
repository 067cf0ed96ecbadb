#pragma once

#include "Foundation/Calendar.h"

#include <QtCore/QByteArray>

namespace tomcatto {

/// Reads the user's calendar from the environment and the system. It is asked for often, so the answer is kept until
/// the `TZ` variable, the system's zone link or the locale variables change, which costs one look at the link. One
/// thread.
class SystemCalendar final
{
public:
    /// The calendar as it is now. A zone that the system does not know is logged, and UTC is taken.
    [[nodiscard]] const Calendar &current();

private:
    /// What tells one setting of the zone from another.
    struct ZoneSource
    {
        QByteArray variable;
        quint64 device = 0;
        quint64 inode = 0;
        qint64 changedSeconds = 0;
        qint64 changedNanoseconds = 0;

        bool operator==(const ZoneSource &) const = default;
    };

    [[nodiscard]] static ZoneSource zoneSource();

    bool m_isRead = false;
    ZoneSource m_zoneSource;
    QByteArray m_localeName;
    Calendar m_calendar;
};

}
