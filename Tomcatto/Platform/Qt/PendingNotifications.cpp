#include "Platform/Qt/PendingNotifications.h"

namespace tomcatto {

struct PendingNotifications::Entry
{
    NotificationRequest request;
    Cancellable timer;
};

PendingNotifications::PendingNotifications(MainRunLoop &runLoop, std::function<void(const Ticket &)> onDue)
    : m_runLoop(runLoop)
    , m_onDue(std::move(onDue))
{
}

PendingNotifications::~PendingNotifications() = default;

void PendingNotifications::add(const NotificationRequest &request)
{
    const auto entry = std::make_shared<Entry>(Entry{request, {}});
    entry->timer = m_runLoop.after(request.delay, [this, ticket = Ticket(entry)] { m_onDue(ticket); });
    m_entries[request.identifier] = entry;
}

void PendingNotifications::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        m_entries.erase(identifier);
}

std::optional<NotificationRequest> PendingNotifications::take(const Ticket &ticket)
{
    const auto entry = ticket.lock();
    if (!entry)
        return std::nullopt;
    m_entries.erase(entry->request.identifier);
    return entry->request;
}

}
