#include "Platform/Freedesktop/LogindLock.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const QString hint = QStringLiteral("LockedHint");

}

LogindLock::LogindLock(const QDBusConnection &systemBus)
    : BusFactSource(systemBus, service)
{
}

void LogindLock::look()
{
    // Desktops start programs outside of any session; then logind takes the one that the user sees.
    QStringList names{QStringLiteral("auto")};
    if (const QString own = qEnvironmentVariable("XDG_SESSION_ID"); !own.isEmpty())
        names.prepend(own);
    findSession(names);
}

void LogindLock::findSession(QStringList names)
{
    const Place manager{QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager")};
    const auto onFound = [this](const QVariantList &session) { follow(session); };
    if (names.isEmpty()) {
        ask(manager, QStringLiteral("GetSessionByPID"), {static_cast<uint>(QCoreApplication::applicationPid())},
            onFound);
        return;
    }
    const QString name = names.takeFirst();
    ask(manager, QStringLiteral("GetSession"), {name}, onFound, [this, names] { findSession(names); });
}

void LogindLock::follow(const QVariantList &session)
{
    m_session = {session.value(0).value<QDBusObjectPath>().path(), QStringLiteral("org.freedesktop.DBus.Properties")};
    listen(m_session, QStringLiteral("PropertiesChanged"), SLOT(noteChange(QString, QVariantMap, QStringList)));
    askHint();
}

void LogindLock::askHint()
{
    ask(m_session, QStringLiteral("Get"), {sessionInterface, hint}, [this](const QVariantList &values) {
        tell(values.value(0).value<QDBusVariant>().variant().toBool() ? Fact::yes : Fact::no);
    });
}

void LogindLock::noteChange(const QString &interface, const QVariantMap &changed, const QStringList &invalidated)
{
    if (interface == sessionInterface && (changed.contains(hint) || invalidated.contains(hint)))
        askHint();
}

}
