#pragma once

#include "Persistence/StoreConnection.h"

namespace tomcatto {

class SerialQueue;

/// A way into the store: a connection and the queue that it is used on. A light value; it must not outlive the
/// `CoreDataStack` that made it.
class ManagedObjectContext final
{
public:
    using Block = std::function<void(ManagedObjectContext &)>;

    /// @param queue where blocks run; none for the main thread's context, whose blocks run on the caller at once
    /// @param didSave called on the queue after every successful save
    ManagedObjectContext(StoreConnection &connection, SerialQueue *queue, std::function<void()> didSave);

    /// Runs `block` on the context's queue, after everything handed to that queue before. Any thread; the main thread
    /// for the main thread's context.
    void perform(Block block) const;
    /// Like `perform`, and returns when the block is done. May be called from within a block.
    void performAndWait(const Block &block) const;

    /// The connection, to read with. Only within a block.
    [[nodiscard]] StoreConnection &connection() const noexcept { return *m_connection; }
    /// Makes `changes` as one transaction, which is on disk when this returns, and announces the save. On a failure
    /// the store is as before. Only within a block.
    [[nodiscard]] StoreResult<void> save(const std::function<StoreResult<void>(StoreConnection &)> &changes) const;

private:
    StoreConnection *m_connection;
    SerialQueue *m_queue;
    std::function<void()> m_didSave;
};

}
