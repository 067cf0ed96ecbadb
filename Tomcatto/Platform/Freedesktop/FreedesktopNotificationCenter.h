#pragma once

#include "Foundation/Cancellable.h"
#include "Foundation/Logger.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/UserNotificationCenter.h"

#include <map>
#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace tomcatto {

/// Shows notifications through the server on the session bus. What is not due yet waits here, since the server knows no
/// such thing. It is asked what it can for each notification, so that one that starts later or takes another's place
/// is treated as what it is; one that does not answer within a few seconds loses that notification.
class FreedesktopNotificationCenter final : public QObject, public UserNotificationCenter
{
    Q_OBJECT

public:
    /// @param runLoop outlives the centre.
    FreedesktopNotificationCenter(const QDBusConnection &sessionBus, MainRunLoop &runLoop);

    void setDelegate(UserNotificationCenterDelegate *delegate) override { m_delegate = delegate; }
    void setNotificationCategories(std::vector<NotificationCategory> categories) override;
    void add(const NotificationRequest &request) override;
    void removePendingRequests(const QStringList &identifiers) override;

private:
    /// A notification that the server has, or had a moment ago.
    struct Shown
    {
        QString server;
        uint id = 0;
        NotificationRequest request;
    };
    using OnReply = std::function<void(const QDBusMessage &reply)>;

    void present(const NotificationRequest &request);
    void notify(const NotificationRequest &request, const QStringList &capabilities);
    [[nodiscard]] QStringList actions(const NotificationRequest &request, const QStringList &capabilities) const;
    void listen();
    void call(const QDBusMessage &message, const OnReply &onReply);
    [[nodiscard]] std::vector<Shown>::iterator find(const QDBusMessage &signal);
    void respond(const QString &action, const NotificationRequest &request);

private Q_SLOTS:
    void takeActivationToken(const QDBusMessage &signal);
    void takeAction(const QDBusMessage &signal);
    void takeClosing(const QDBusMessage &signal);

private:
    QDBusConnection m_bus;
    MainRunLoop &m_runLoop;
    Logger m_logger{QStringLiteral("FreedesktopNotificationCenter")};
    UserNotificationCenterDelegate *m_delegate = nullptr;
    std::vector<NotificationCategory> m_categories;
    std::map<QString, Cancellable> m_pending;
    std::vector<Shown> m_shown;
    bool m_isListening = false;
};

}
