#include "Platform/Freedesktop/SystemCalendar.h"

#include <QtCore/QLocale>
#include <sys/stat.h>

namespace tomcatto {

namespace {

QByteArray timeLocaleName()
{
    for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        QByteArray name = qgetenv(variable);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

}

Qt::DayOfWeek firstWeekdayOfLocale(const QByteArray &name)
{
    const QByteArray base = name.split('.').constFirst().split('@').constFirst();
    if (base.isEmpty() || base == "C" || base == "POSIX")
        return Qt::Monday;
    return QLocale(QString::fromLatin1(base)).firstDayOfWeek();
}

const Calendar &SystemCalendar::current()
{
    ZoneSource source = zoneSource();
    if (!m_isRead || source != m_zoneSource) {
        const QTimeZone zone = QTimeZone::systemTimeZone();
        m_calendar.timeZone = zone.isValid() ? zone : QTimeZone::utc();
        m_zoneSource = std::move(source);
    }
    QByteArray name = timeLocaleName();
    if (!m_isRead || name != m_localeName) {
        m_calendar.firstWeekday = firstWeekdayOfLocale(name);
        m_localeName = std::move(name);
    }
    m_isRead = true;
    return m_calendar;
}

SystemCalendar::ZoneSource SystemCalendar::zoneSource()
{
    ZoneSource source;
    source.variable = qgetenv("TZ");
    struct stat link = {};
    if (::lstat("/etc/localtime", &link) == 0) {
        source.device = link.st_dev;
        source.inode = link.st_ino;
        source.changedSeconds = link.st_ctim.tv_sec;
        source.changedNanoseconds = link.st_ctim.tv_nsec;
    }
    return source;
}

}
