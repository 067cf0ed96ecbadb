#pragma once

#include "Foundation/Logger.h"
#include "Platform/Qt/PendingNotifications.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace tomcatto {

/// Shows notifications through the server on the session bus. What is not due yet waits here, since the server knows no
/// such thing. It is asked what it can for each notification, so that one that starts later or takes another's place
/// is treated as what it is; one that does not answer within a few seconds loses that notification. What shows goes
/// with this, since nobody would answer its buttons.
class FreedesktopNotificationCenter final : public QObject, public UserNotificationCenter
{
    Q_OBJECT

public:
    /// @param runLoop outlives the centre.
    FreedesktopNotificationCenter(const QDBusConnection &sessionBus, MainRunLoop &runLoop);
    ~FreedesktopNotificationCenter() override;

    void setDelegate(UserNotificationCenterDelegate *delegate) override { m_delegate = delegate; }
    void setNotificationCategories(std::vector<NotificationCategory> categories) override;
    void add(const NotificationRequest &request) override { m_pending.add(request); }
    void removePendingRequests(const QStringList &identifiers) override { m_pending.remove(identifiers); }

private:
    /// A notification that the server has, or had a moment ago.
    struct Shown
    {
        QString server;
        uint id = 0;
        QString identifier;
        QMap<QString, QString> userInfo;
        QByteArray activationToken;
    };
    using OnReply = std::function<void(const QDBusMessage &reply)>;

    void present(const PendingNotifications::Ticket &ticket);
    void notify(const NotificationRequest &request, const QDBusMessage &capabilitiesReply);
    void noteShown(const Shown &shown);
    /// Which of its notifications this server is to replace; 0 for none.
    [[nodiscard]] uint replaced(const QString &identifier, const QString &server) const;
    [[nodiscard]] QStringList actions(const NotificationRequest &request, const QStringList &capabilities) const;
    void listen();
    void call(const QDBusMessage &message, int limitMilliseconds, const OnReply &onReply);
    [[nodiscard]] std::vector<Shown>::iterator find(const QDBusMessage &signal);
    void offerActivation(const QByteArray &token);
    void respond(const QString &action, const QMap<QString, QString> &userInfo);

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
    PendingNotifications m_pending;
    std::vector<Shown> m_shown;
    Cancellable m_offeredActivation;
    bool m_isListening = false;
};

}
