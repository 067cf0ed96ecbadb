#pragma once

#include <chrono>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

namespace tomcatto {

/// A button of a notification.
struct NotificationAction
{
    QString identifier;
    QString title;

    bool operator==(const NotificationAction &) const = default;
};

/// A kind of notification, with its buttons in their order.
struct NotificationCategory
{
    QString identifier;
    std::vector<NotificationAction> actions;

    bool operator==(const NotificationCategory &) const = default;
};

/// A notification to be shown after a delay; of two with one identifier the later takes the place of the earlier.
struct NotificationRequest
{
    QString identifier;
    QString title;
    QString body;
    QString categoryIdentifier;
    QMap<QString, QString> userInfo;
    std::chrono::milliseconds delay{0};

    bool operator==(const NotificationRequest &) const = default;
};

/// What the user did with a notification.
struct NotificationResponse
{
    /// One of the category's, or one of the two of `UserNotificationCenter`.
    QString actionIdentifier;
    QMap<QString, QString> userInfo;
};

/// In which ways a notification shows while the application is in front.
struct NotificationPresentation
{
    bool isBanner = false;
    bool isInList = false;
    bool hasSound = false;
    bool hasBadge = false;

    bool operator==(const NotificationPresentation &) const = default;
};

/// Who decides about notifications and hears of what the user did with them.
class UserNotificationCenterDelegate
{
public:
    virtual ~UserNotificationCenterDelegate() = default;

    /// Asked before one shows while the application is in front.
    [[nodiscard]] virtual NotificationPresentation willPresent() const = 0;
    virtual void didReceive(const NotificationResponse &response) = 0;
};

/// The system's notifications. What it cannot show or does not permit is dropped without a word; nothing here waits for
/// anybody. Main thread only.
class UserNotificationCenter
{
public:
    /// The user pressed the notification itself, or sent it away.
    static constexpr QLatin1String defaultActionIdentifier{"default"};
    static constexpr QLatin1String dismissActionIdentifier{"dismiss"};

    virtual ~UserNotificationCenter() = default;

    /// @param delegate outlives the centre, or takes itself back with `nullptr`.
    virtual void setDelegate(UserNotificationCenterDelegate *delegate) = 0;
    /// Takes the place of all earlier ones; what shows already keeps its buttons.
    virtual void setNotificationCategories(std::vector<NotificationCategory> categories) = 0;
    virtual void add(const NotificationRequest &request) = 0;
    /// Drops those of these identifiers that do not show yet.
    virtual void removePendingRequests(const QStringList &identifiers) = 0;
};

}
