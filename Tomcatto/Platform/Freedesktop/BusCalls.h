#pragma once

#include <functional>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusPendingReply>

namespace tomcatto {

/// A call of a method that the bus itself has.
[[nodiscard]] QDBusMessage busCall(const QString &method, const QVariantList &arguments = {});
/// Calls `answered` when a call has its answer or has failed, in a later turn of the main loop, unless `context` goes
/// before.
void whenAnswered(const QDBusPendingCall &call, QObject *context,
                  std::function<void(const QDBusPendingCall &)> answered);
/// Calls `changed` with each new owner of a name, which is empty where there is none any more, until `context` goes.
void followOwner(const QDBusConnection &bus, const QString &name, QObject *context,
                 std::function<void(const QString &newOwner)> changed);

}
