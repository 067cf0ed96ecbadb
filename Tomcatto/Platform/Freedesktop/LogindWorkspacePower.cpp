#include "Platform/Freedesktop/LogindWorkspacePower.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/BusCalls.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString managerInterface = QStringLiteral("org.freedesktop.login1.Manager");

}

LogindWorkspacePower::LogindWorkspacePower(const QDBusConnection &systemBus)
    : m_bus(systemBus)
{
    if (!m_bus.isConnected()) {
        m_logger.info(QStringLiteral("no system bus, sleep goes unnoticed"));
        return;
    }
    if (!m_bus.connect(service, managerPath, managerInterface, QStringLiteral("PrepareForSleep"), this,
                       SLOT(prepareForSleep(bool))))
        m_logger.error(QStringLiteral("sleep cannot be watched: ") + m_bus.lastError().message());
    followOwner(m_bus, service, this, [this](const QString &newOwner) { beginAnew(!newOwner.isEmpty()); });
}

LogindWorkspacePower::~LogindWorkspacePower() = default;

Cancellable LogindWorkspacePower::onWillSleep(std::function<void()> handler)
{
    return m_willSleep.add(std::move(handler));
}

Cancellable LogindWorkspacePower::onDidWake(std::function<void()> handler)
{
    return m_didWake.add(std::move(handler));
}

void LogindWorkspacePower::setSleepDelayed(bool isDelayed)
{
    m_isDelayWanted = isDelayed;
    if (isDelayed)
        takeInhibitor();
    // Handlers of the sleep may still have something to do.
    else if (!m_isAsleep)
        m_inhibitor = {};
}

void LogindWorkspacePower::prepareForSleep(bool isStarting)
{
    if (!isStarting) {
        endSleep();
        takeInhibitor();
        return;
    }
    if (std::exchange(m_isAsleep, true))
        return;
    m_willSleep.call();
    // From here on the machine may sleep.
    m_inhibitor = {};
}

void LogindWorkspacePower::endSleep()
{
    if (std::exchange(m_isAsleep, false))
        m_didWake.call();
}

void LogindWorkspacePower::takeInhibitor()
{
    if (!m_isDelayWanted || m_isAsleep || m_inhibitor.isValid() || m_call || !m_bus.isConnected())
        return;
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, managerPath, managerInterface, QStringLiteral("Inhibit"));
    message << QStringLiteral("sleep") << productName << QStringLiteral("Pauses the running phase")
            << QStringLiteral("delay");
    m_call = std::make_unique<QDBusPendingCallWatcher>(m_bus.asyncCall(message));
    connect(m_call.get(), &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher *call) { keepInhibitor(*call); });
}

void LogindWorkspacePower::keepInhibitor(QDBusPendingCallWatcher &call)
{
    const QDBusPendingReply<QDBusUnixFileDescriptor> reply = call;
    // The watcher is still delivering its signal.
    m_call.release()->deleteLater();
    if (reply.isError()) {
        if (!std::exchange(m_hasFailed, true))
            m_logger.error(QStringLiteral("sleep cannot be delayed: ") + reply.error().message());
        return;
    }
    m_hasFailed = false;
    // Wishes may have changed while the call was under way.
    if (m_isDelayWanted && !m_isAsleep)
        m_inhibitor = reply.value();
}

void LogindWorkspacePower::beginAnew(bool isThere)
{
    // What the former logind granted ended with it, and it will no longer announce the wake.
    m_inhibitor = {};
    m_call.reset();
    endSleep();
    if (isThere)
        takeInhibitor();
}

}
