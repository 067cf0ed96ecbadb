#include "Persistence/ManagedObjectContext.h"

#include "Persistence/SerialQueue.h"

namespace tomcatto {

ManagedObjectContext::ManagedObjectContext(StoreConnection &connection, SerialQueue *queue,
                                           std::function<void()> didSave)
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

StoreResult<void> ManagedObjectContext::save(const std::function<StoreResult<void>(StoreConnection &)> &changes) const
{
    auto saved = m_connection->transaction([this, &changes] { return changes(*m_connection); });
    if (saved)
        m_didSave();
    return saved;
}

}
