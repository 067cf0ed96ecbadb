#pragma once

#include "Persistence/StoreConnection.h"

namespace tomcatto {

class SerialQueue;

/// What a save may have done to the ended phases.
enum class HistoryChange {
    /// Those that were stored before are as they were.
    added,
    /// Some of those that were stored before may be different or gone.
    rewritten,
};

/// A way into the store: a connection and the queue that it is used on. A light value; it must not outlive the
/// `CoreDataStack` that made it.
class ManagedObjectContext final
{
public:
    using Block = std::function<void(ManagedObjectContext &)>;
    /// Called on the queue: what became of the ended phases, and whether there was a save to announce.
    using DidSave = std::function<void(HistoryChange change, bool isSaved)>;

    /// @param queue where blocks run; none for the main thread's context, whose blocks run on the caller at once
    ManagedObjectContext(StoreConnection &connection, SerialQueue *queue, DidSave didSave);

    /// Runs `block` on the context's queue, after everything handed to that queue before. Any thread; the main thread
    /// for the main thread's context.
    void perform(Block block) const;
    /// Like `perform`, and returns when the block is done. Not from within a block of that queue.
    void performAndWait(const Block &block) const;

    /// The connection, to read with. Only within a block.
    [[nodiscard]] StoreConnection &connection() const noexcept { return *m_connection; }
    /// Makes `changes` as one transaction, which is on disk when this returns, and announces the save. On a failure
    /// the store is as before. Only within a block.
    /// @param change what `changes` does to the ended phases
    [[nodiscard]] StoreResult<void> save(const std::function<StoreResult<void>(StoreConnection &)> &changes,
                                         HistoryChange change = HistoryChange::rewritten) const;
    /// The same from outside of a block, waited for like `performAndWait`.
    [[nodiscard]] StoreResult<void> saveAndWait(const std::function<StoreResult<void>(StoreConnection &)> &changes,
                                                HistoryChange change) const;

private:
    StoreConnection *m_connection;
    SerialQueue *m_queue;
    DidSave m_didSave;
};

}
