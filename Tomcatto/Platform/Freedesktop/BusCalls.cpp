#include "Platform/Freedesktop/BusCalls.h"

#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>

namespace tomcatto {

QDBusMessage busCall(const QString &method, const QVariantList &arguments)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
    message.setArguments(arguments);
    return message;
}

void whenAnswered(const QDBusPendingCall &call, QObject *context,
                  std::function<void(const QDBusPendingCall &)> answered)
{
    auto *const watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, answered = std::move(answered)] {
        watcher->deleteLater();
        answered(*watcher);
    });
}

void followOwner(const QDBusConnection &bus, const QString &name, QObject *context,
                 std::function<void(const QString &newOwner)> changed)
{
    auto *const watcher = new QDBusServiceWatcher(name, bus, QDBusServiceWatcher::WatchForOwnerChange, context);
    QObject::connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, context,
                     [changed = std::move(changed)](const QString &, const QString &, const QString &newOwner) {
                         changed(newOwner);
                     });
}

}
