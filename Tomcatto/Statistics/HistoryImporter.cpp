#include "Statistics/HistoryImporter.h"

#include "Platform/Ports/IdentifierSource.h"
#include "Statistics/StatsCSVReader.h"

namespace tomcatto {

namespace {

HistoryImporter::Result importNow(CoreDataStack &stack, const QString &path, const QUuid &seed)
{
    auto sessions = StatsCSVReader::read(path);
    if (!sessions)
        return std::unexpected(sessions.error());
    const auto all = static_cast<qint64>(sessions->size());
    const auto added = importSessions(stack, *std::move(sessions), seed);
    if (!added)
        return std::unexpected(added.error().description());
    return HistoryImporter::Imported{*added, all};
}

}

HistoryImporter::HistoryImporter(CoreDataStack &stack, IdentifierSource &identifiers, QObject *parent)
    : QObject(parent)
    , m_stack(stack)
    , m_identifiers(identifiers)
{
}

HistoryImporter::~HistoryImporter()
{
    m_queue.drain();
}

void HistoryImporter::importFile(const QString &path, std::function<void(const Result &)> done)
{
    m_queue.async([this, path, seed = m_identifiers.next(), done = std::move(done)] {
        const Result result = importNow(m_stack, path, seed);
        QMetaObject::invokeMethod(
            this, [done, result] { done(result); }, Qt::QueuedConnection);
    });
}

}
