#pragma once

#include "Foundation/Logger.h"
#include "Persistence/ManagedObjectContext.h"
#include "Persistence/SerialQueue.h"
#include "Persistence/StoreCopy.h"

#include <atomic>
#include <memory>
#include <optional>
#include <QtCore/QObject>

namespace tomcatto {

/// Owns the store: the file "Tomcatto/Tomcatto.sqlite" with the ended phases and the user's videos, the main thread's
/// context for reading and the background contexts for writing. Other processes may have the same store open; readers
/// never wait for a writer, writers wait for each other. Built and destroyed on the main thread; contexts must not
/// outlive it.
class CoreDataStack final : public QObject
{
    Q_OBJECT
public:
    /// Opens the store, and makes or migrates it first where needed. Ends the process with `storeFailureStatus` when
    /// that fails; the file is then left as it is.
    /// @param applicationSupportDirectory the user's first directory for application data; nothing when there is none
    explicit CoreDataStack(const std::optional<QString> &applicationSupportDirectory, QObject *parent = nullptr);
    /// Finishes everything handed over to background contexts.
    ~CoreDataStack() override;

    /// The main thread's context, which queries use.
    [[nodiscard]] const ManagedObjectContext &viewContext() const noexcept { return *m_viewContext; }
    /// A context for writing. All of them share one queue, so their blocks run in the order they were handed over, and
    /// one that is waited for runs after all before it. Any thread.
    [[nodiscard]] ManagedObjectContext newBackgroundContext();
    /// Asks, in the background, whether another process has written to the store since this one last wrote or asked,
    /// and announces that like a save. Main thread.
    void announceForeignWrites();
    /// Returns when everything handed over to background contexts so far is on disk. Any thread.
    void save();
    /// Puts a store that was prepared for it in the store's place, after everything handed over so far is written, and
    /// announces that as if others had written. Takes some hundredths of a second. Main thread.
    /// @return as `storeReplacement::putInPlace`; after an error everything is as before
    [[nodiscard]] StoreCopyResult<QString> replaceStore(const QString &prepared, const QString &keptName);
    /// How often ended phases that were stored may have changed or gone, by this process or another. It has grown
    /// before the save that it grows for is announced. Any thread.
    [[nodiscard]] quint64 rewrites() const noexcept { return m_rewrites; }
    /// Where the store lies below an application-support directory, whether it exists or not.
    [[nodiscard]] static QString storePath(const QString &applicationSupportDirectory);
    /// The store's file.
    [[nodiscard]] const QString &storePath() const noexcept { return m_storePath; }

Q_SIGNALS:
    /// A context of this stack has saved, or another process has written. Emitted on the thread that saved: connect
    /// with a context object and `Qt::QueuedConnection` to get it on the main thread.
    void contextDidSave();
    /// Another process has written, whatever it was. Emitted likewise, before `contextDidSave`.
    void othersDidWrite();

private:
    void loadPersistentStore();
    void didSave(HistoryChange change, bool isSaved);

    Logger m_logger;
    QString m_storePath;
    std::atomic<quint64> m_rewrites = 0;
    std::unique_ptr<StoreConnection> m_viewConnection;
    std::unique_ptr<StoreConnection> m_backgroundConnection;
    std::unique_ptr<ManagedObjectContext> m_viewContext;
    SerialQueue m_backgroundQueue;
};

}
