#pragma once

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

    /// Both outlive the importer.
    HistoryImporter(CoreDataStack &stack, IdentifierSource &identifiers, QObject *parent = nullptr);
    /// Finishes what has begun.
    ~HistoryImporter() override;

    /// Adds what the history does not have of a file, all of it or nothing.
    /// @param done is called on the main thread, unless the importer is gone by then
    void importFile(const QString &path, std::function<void(const Result &)> done);

private:
    CoreDataStack &m_stack;
    IdentifierSource &m_identifiers;
    SerialQueue m_queue;
};

}
