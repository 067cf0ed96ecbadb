#pragma once

#include "Persistence/DiskQuestions.h"
#include "Persistence/Repositories/SessionImport.h"
#include "Persistence/SerialQueue.h"

#include <expected>
#include <QtCore/QObject>

namespace tomcatto {

class CoreDataStack;
class IdentifierSource;

/// Takes exported files into the history, in the background. Main thread only.
class HistoryImporter final : public QObject
{
    Q_OBJECT
public:
    /// How many phases of a file were added, and how many it has.
    struct Imported
    {
        qint64 added = 0;
        qint64 all = 0;
    };
    /// The error is one line for people; the history is then as it was.
    using Result = std::expected<Imported, QString>;

    /// All outlive the importer.
    HistoryImporter(CoreDataStack &stack, IdentifierSource &identifiers, MainRunLoop &runLoop,
                    QObject *parent = nullptr);
    /// Finishes what is being stored, and leaves a file that is still being read.
    ~HistoryImporter() override;

    /// Adds what the history does not have of a file, all of it or nothing.
    /// @param done is called on the main thread, unless the importer is gone by then
    void importFile(const QString &path, std::function<void(const Result &)> done);

private:
    void add(std::vector<ImportedSession> sessions, const std::function<void(const Result &)> &done);

    CoreDataStack &m_stack;
    IdentifierSource &m_identifiers;
    DiskQuestions m_disks;
    SerialQueue m_queue;
};

}
