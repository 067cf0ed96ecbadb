#include "Platform/Posix/SystemCalendar.h"

#include "Foundation/Logger.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
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

/// Takes over the habits of the locale of this name, such as "de_DE.UTF-8". Names that carry no country's habits, as
/// "C", give weeks from Monday and hours to 24.
void followLocale(Calendar &calendar, const QByteArray &name)
{
    const QByteArray base = name.split('.').constFirst().split('@').constFirst();
    const QLocale locale(base.isEmpty() || base == "POSIX" ? QStringLiteral("C") : QString::fromLatin1(base));
    const bool hasHabits = locale.language() != QLocale::C;
    calendar.firstWeekday = hasHabits ? locale.firstDayOfWeek() : Qt::Monday;
    calendar.timeFormat = hasHabits ? locale.timeFormat(QLocale::ShortFormat) : Calendar().timeFormat;
}

/// The zone's name that the `TZ` variable stands for if that is a path, which Qt does not know; empty if it is none, or
/// one of a file that is not the system's.
QByteArray nameOfZoneFile(QByteArray variable)
{
    if (variable.startsWith(':'))
        variable.remove(0, 1);
    if (!variable.startsWith('/'))
        return {};
    const QByteArray path = QFile::encodeName(QFileInfo(QFile::decodeName(variable)).canonicalFilePath());
    const QByteArray folder = "/zoneinfo/";
    const auto start = path.indexOf(folder);
    return start < 0 ? QByteArray() : path.mid(start + folder.size());
}

/// UTC where the zone is not known, as in the system's own library.
QTimeZone readZone(const QByteArray &variable)
{
    const QByteArray name = nameOfZoneFile(variable);
    const QTimeZone zone(name.isEmpty() ? QTimeZone::systemTimeZoneId() : name);
    if (zone.isValid())
        return zone;
    Logger(QStringLiteral("SystemCalendar"))
        .error(QStringLiteral("the time zone \"%1\" is not known, so days are those of UTC")
                   .arg(QString::fromLocal8Bit(variable)));
    return QTimeZone::utc();
}

}

const Calendar &SystemCalendar::current()
{
    ZoneSource source = zoneSource();
    if (!m_isRead || source != m_zoneSource) {
        m_calendar.timeZone = readZone(source.variable);
        m_zoneSource = std::move(source);
    }
    QByteArray name = timeLocaleName();
    if (!m_isRead || name != m_localeName) {
        followLocale(m_calendar, name);
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
