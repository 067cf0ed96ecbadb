#pragma once

#include "Foundation/HandlerList.h"
#include "Foundation/Logger.h"
#include "Platform/Ports/HotKeys.h"

#include <chrono>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

namespace tomcatto {

/// How long a portal may take.
struct PortalLimits
{
    /// For what it does by itself.
    std::chrono::milliseconds answer{10'000};
    /// For what it may ask the user about.
    std::chrono::milliseconds decision{300'000};
};

/// Hot keys by the desktop's portal for them, which asks the user and decides which keys they get in the end. A session
/// of the portal takes all combinations once, so a change makes a new one. Nothing here waits for the bus; a portal
/// that does not answer counts as one that refuses, and after its restart it is asked anew. Main thread only.
class PortalHotKeys final : public QObject, public HotKeys
{
    Q_OBJECT

public:
    /// @param sessionBus it may be without a connection.
    explicit PortalHotKeys(const QDBusConnection &sessionBus, PortalLimits limits = {});
    ~PortalHotKeys() override;

    [[nodiscard]] HotKeySupport support() const override;
    [[nodiscard]] Cancellable onSupportChanged(std::function<void()> handler) override;
    void setDelegate(HotKeysDelegate *delegate) override { m_delegate = delegate; }
    [[nodiscard]] std::expected<Cancellable, int> registerHotKey(const HotKeyRequest &request) override;

private Q_SLOTS:
    void responded(const QDBusMessage &signal);
    void activated(const QDBusMessage &signal);
    void sessionClosed(const QDBusMessage &signal);

private:
    void lookForPortal();
    void unregister(HotKeyIdentifier identifier);
    void adjustLater();
    void adjust();
    void createSession();
    void bind();
    void noteBound(const QVariantMap &results);
    void ask(const QDBusMessage &message, std::chrono::milliseconds limit);
    [[nodiscard]] QDBusPendingCall begun(const QDBusMessage &message) const
    {
        return m_bus.asyncCall(message, static_cast<int>(m_limits.answer.count()));
    }
    void refuse(const QString &reason);
    void endSession();
    void forgetSession();
    void close(const QString &path, const QString &interface);
    void setSupport(HotKeySupport support);
    void tell(HotKeyIdentifier identifier, bool isAvailable);

    QDBusConnection m_bus;
    const PortalLimits m_limits;
    QTimer m_limit;
    const Logger m_logger{QStringLiteral("PortalHotKeys")};
    HotKeysDelegate *m_delegate = nullptr;
    HandlerList m_supportHandlers;
    HotKeySupport m_support = HotKeySupport::none;
    std::vector<HotKeyRequest> m_wanted;
    /// What the present session is for; empty without one.
    std::vector<HotKeyRequest> m_asked;
    /// The object that will tell of what is being asked, and the session's; empty without one.
    QString m_request;
    QString m_session;
    bool m_isBinding = false;
    bool m_isDue = false;
    /// Of the last request, whose name is made of it.
    int m_number = 0;
};

}
