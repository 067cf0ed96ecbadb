#include "Platform/Freedesktop/TimeZoneSignal.h"

namespace tomcatto {

TimeZoneSignal::TimeZoneSignal(QDBusConnection systemBus, std::function<void()> onChanged, QObject *parent)
    : QObject(parent)
    , m_onChanged(std::move(onChanged))
{
    if (systemBus.isConnected())
        systemBus.connect(QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
                          QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"), this,
                          SLOT(read(QString, QVariantMap, QStringList)));
}

void TimeZoneSignal::read(const QString &interface, const QVariantMap &changed, const QStringList &invalidated)
{
    const QString zone = QStringLiteral("Timezone");
    if (interface == QLatin1String("org.freedesktop.timedate1") &&
        (changed.contains(zone) || invalidated.contains(zone)))
        m_onChanged();
}

}
