#include "Persistence/CoreDataStack.h"

#include "Foundation/FatalError.h"
#include "Persistence/StoreReplacement.h"
#include "Persistence/StoreSchema.h"

#include <filesystem>
#include <functional>

namespace tomcatto {

namespace {

QString makeStoreDirectory(const std::optional<QString> &applicationSupportDirectory)
{
    if (!applicationSupportDirectory || applicationSupportDirectory->isEmpty())
        stopProcess(QStringLiteral("Application Support directory is unavailable"), storeFailureStatus);
    const QString directory = *applicationSupportDirectory + QStringLiteral("/Tomcatto");
    const std::filesystem::path path(directory.toStdU16String());
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        std::filesystem::create_directories(path, error);
        if (error)
            stopProcess(QStringLiteral("Unable to create Application Support subdirectory: ") + directory +
                            QStringLiteral(": ") + QString::fromStdString(error.message()),
                        storeFailureStatus);
    }
    return directory;
}

}

CoreDataStack::CoreDataStack(const std::optional<QString> &applicationSupportDirectory, QObject *parent)
    : QObject(parent)
    , m_logger(QStringLiteral("CoreData"))
    , m_storePath(makeStoreDirectory(applicationSupportDirectory) + QStringLiteral("/Tomcatto.sqlite"))
    , m_viewConnection(std::make_unique<StoreConnection>(m_storePath, StoreConnection::Access::createWhenMissing))
    , m_backgroundConnection(std::make_unique<StoreConnection>(m_storePath, StoreConnection::Access::existingOnly))
    , m_viewContext(std::make_unique<ManagedObjectContext>(*m_viewConnection, nullptr,
                                                           std::bind_front(&CoreDataStack::didSave, this)))
{
    loadPersistentStore();
    m_logger.info(QStringLiteral("Core Data stack ready at ") + m_storePath);
}

QString CoreDataStack::storePath(const QString &applicationSupportDirectory)
{
    return applicationSupportDirectory + QStringLiteral("/Tomcatto/Tomcatto.sqlite");
}

CoreDataStack::~CoreDataStack()
{
    save();
}

void CoreDataStack::loadPersistentStore()
{
    const auto prepared = StoreSchema(*m_viewConnection).prepare();
    if (prepared)
        return;
    const QString error = prepared.error().description();
    m_logger.fault(QStringLiteral("Failed to load persistent store: ") + error);
    stopProcess(QStringLiteral("Unrecoverable Core Data error: ") + error + QStringLiteral(", ") +
                    prepared.error().userInfo(),
                storeFailureStatus);
}

ManagedObjectContext CoreDataStack::newBackgroundContext()
{
    return {*m_backgroundConnection, &m_backgroundQueue, std::bind_front(&CoreDataStack::didSave, this)};
}

StoreCopyResult<QString> CoreDataStack::replaceStore(const QString &prepared, const QString &keptName)
{
    StoreCopyResult<QString> replaced;
    // This thread waits, so neither connection is in use.
    m_backgroundQueue.sync([&] {
        m_backgroundConnection->close();
        m_viewConnection->close();
        replaced = storeReplacement::putInPlace(prepared, m_storePath, keptName);
    });
    // An earlier store that stayed has no log any more, either. Without one, readers wait for writers.
    if (const auto opened = StoreSchema(*m_viewConnection).prepare(); !opened)
        m_logger.error(QStringLiteral("The history is without its log: ") + opened.error().description());
    if (replaced) {
        Q_EMIT othersDidWrite();
        didSave(HistoryChange::rewritten, true);
    }
    return replaced;
}

void CoreDataStack::didSave(HistoryChange change, bool isSaved)
{
    // Counted even where nothing was saved: what others wrote is noticed only once.
    if (change == HistoryChange::rewritten)
        ++m_rewrites;
    if (isSaved)
        Q_EMIT contextDidSave();
}

void CoreDataStack::announceForeignWrites()
{
    // The connection that writes: what this process has written is not foreign to it.
    newBackgroundContext().perform([this](const ManagedObjectContext &context) {
        if (!context.connection().noticeForeignWrites())
            return;
        Q_EMIT othersDidWrite();
        didSave(HistoryChange::rewritten, true);
    });
}

void CoreDataStack::save()
{
    m_backgroundQueue.drain();
}

}
