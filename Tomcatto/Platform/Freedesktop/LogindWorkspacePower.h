#pragma once

#include "Foundation/HandlerList.h"
#include "Foundation/Logger.h"
#include "Platform/Ports/WorkspacePower.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusUnixFileDescriptor>

class QDBusPendingCallWatcher;

namespace tomcatto {

/// Sleep and wake as logind announces them on the system bus. Without a bus or logind nothing is ever announced, which
/// is logged once.
class LogindWorkspacePower final : public QObject, public WorkspacePower
{
    Q_OBJECT

public:
    /// @param systemBus the bus that logind is on; it may be without a connection.
    explicit LogindWorkspacePower(const QDBusConnection &systemBus);
    ~LogindWorkspacePower() override;

    [[nodiscard]] bool tellsOfSleep() const override { return m_bus.isConnected(); }
    [[nodiscard]] Cancellable onWillSleep(std::function<void()> handler) override;
    [[nodiscard]] Cancellable onDidWake(std::function<void()> handler) override;
    /// Holds a delay inhibitor while wanted, which logind honours for a few seconds at each sleep.
    void setSleepDelayed(bool isDelayed) override;

private Q_SLOTS:
    void prepareForSleep(bool isStarting);

private:
    void takeInhibitor();
    void keepInhibitor(QDBusPendingCallWatcher &call);
    /// With another logind, or none.
    void beginAnew(bool isThere);
    void endSleep();

    QDBusConnection m_bus;
    const Logger m_logger{QStringLiteral("LogindWorkspacePower")};
    HandlerList m_willSleep;
    HandlerList m_didWake;
    QDBusUnixFileDescriptor m_inhibitor;
    /// The call under way; answers of earlier ones are dropped.
    std::unique_ptr<QDBusPendingCallWatcher> m_call;
    bool m_isDelayWanted = false;
    bool m_isAsleep = false;
    bool m_hasFailed = false;
};

}
