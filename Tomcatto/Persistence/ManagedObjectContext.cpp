#include "Persistence/ManagedObjectContext.h"

#include "Persistence/SerialQueue.h"

namespace tomcatto {

ManagedObjectContext::ManagedObjectContext(StoreConnection &connection, SerialQueue *queue, DidSave didSave)
    : m_connection(&connection)
    , m_queue(queue)
    , m_didSave(std::move(didSave))
{
}

void ManagedObjectContext::perform(Block block) const
{
    ManagedObjectContext context = *this;
    if (m_queue)
        m_queue->async([context, block = std::move(block)]() mutable { block(context); });
    else
        block(context);
}

void ManagedObjectContext::performAndWait(const Block &block) const
{
    ManagedObjectContext context = *this;
    if (m_queue)
        m_queue->sync([&context, &block] { block(context); });
    else
        block(context);
}

StoreResult<void> ManagedObjectContext::save(const std::function<StoreResult<void>(StoreConnection &)> &changes,
                                             HistoryChange change) const
{
    auto saved = m_connection->transaction([this, &changes, &change] {
        // What others did is noticed under the write lock, so that nothing comes between it and the commit.
        if (m_connection->noticeForeignWrites())
            change = HistoryChange::rewritten;
        return changes(*m_connection);
    });
    m_didSave(change, saved.has_value());
    return saved;
}

StoreResult<void> ManagedObjectContext::saveAndWait(const std::function<StoreResult<void>(StoreConnection &)> &changes,
                                                    HistoryChange change) const
{
    StoreResult<void> saved;
    performAndWait([&](const ManagedObjectContext &context) { saved = context.save(changes, change); });
    return saved;
}

}
