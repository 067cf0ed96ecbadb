#pragma once

#include "Platform/Qt/PendingNotifications.h"
#include "Platform/Qt/ToolkitTray.h"

#include <QtCore/QPointer>

namespace tomcatto {

/// Shows notifications as messages of the tray's icon, for systems without anything better. A message has no buttons
/// and is not kept in a list; one takes the place of the one before. Where there is no tray, none shows. Main thread
/// only.
class TrayNotificationCenter final : public QObject, public UserNotificationCenter
{
    Q_OBJECT

public:
    /// @param runLoop outlives the centre.
    explicit TrayNotificationCenter(MainRunLoop &runLoop);

    /// The icon whose messages these are; before that, and when it has gone, none shows.
    void setTray(ToolkitTray &tray);

    void setDelegate(UserNotificationCenterDelegate *delegate) override { m_delegate = delegate; }
    /// There is no place for buttons.
    void setNotificationCategories(std::vector<NotificationCategory> /*categories*/) override {}
    void add(const NotificationRequest &request) override { m_pending.add(request); }
    void removePendingRequests(const QStringList &identifiers) override { m_pending.remove(identifiers); }

private:
    void present(const NotificationRequest &request);

    UserNotificationCenterDelegate *m_delegate = nullptr;
    PendingNotifications m_pending;
    QPointer<ToolkitTray> m_tray;
    /// Of the message that was shown last.
    QMap<QString, QString> m_userInfo;
};

}
