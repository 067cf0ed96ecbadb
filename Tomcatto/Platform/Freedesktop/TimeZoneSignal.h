#pragma once

#include <functional>
#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>

namespace tomcatto {

/// The announcement on the system bus that the machine's time zone was set.
class TimeZoneSignal final : public QObject
{
    Q_OBJECT

public:
    /// @param systemBus it may be without a connection; then nothing is announced.
    TimeZoneSignal(QDBusConnection systemBus, std::function<void()> onChanged, QObject *parent = nullptr);

private Q_SLOTS:
    void read(const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

private:
    std::function<void()> m_onChanged;
};

}
