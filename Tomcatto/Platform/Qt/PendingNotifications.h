#pragma once

#include "Foundation/Cancellable.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/UserNotificationCenter.h"

#include <map>
#include <memory>
#include <optional>

namespace tomcatto {

/// Notifications that are not to show yet, for systems that show at once what they are given. Main thread only.
class PendingNotifications final
{
    struct Entry;

public:
    /// One request, which may be taken back or replaced until it is taken.
    using Ticket = std::weak_ptr<const Entry>;

    /// @param runLoop outlives this.
    /// @param onDue told of each request whose delay is over
    PendingNotifications(MainRunLoop &runLoop, std::function<void(const Ticket &)> onDue);
    ~PendingNotifications();

    /// Takes the place of an earlier one with the same identifier.
    void add(const NotificationRequest &request);
    void remove(const QStringList &identifiers);
    /// Gives the request and forgets it; `nullopt` if it was taken back or replaced.
    [[nodiscard]] std::optional<NotificationRequest> take(const Ticket &ticket);

private:
    MainRunLoop &m_runLoop;
    std::function<void(const Ticket &)> m_onDue;
    std::map<QString, std::shared_ptr<Entry>> m_entries;
};

}
