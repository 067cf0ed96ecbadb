#include "Statistics/HistoryImporter.h"

#include "Platform/Ports/IdentifierSource.h"
#include "Statistics/StatsCSVReader.h"

namespace tomcatto {

namespace {

using Sessions = std::expected<std::vector<ImportedSession>, QString>;

/// Long enough for the largest file on a slow disk.
constexpr std::chrono::minutes readingPatience{10};

HistoryImporter::Result addNow(CoreDataStack &stack, std::vector<ImportedSession> sessions, const QUuid &seed)
{
    const auto all = static_cast<qint64>(sessions.size());
    const auto added = importSessions(stack, std::move(sessions), seed);
    if (!added)
        return std::unexpected(added.error().description());
    return HistoryImporter::Imported{*added, all};
}

}

HistoryImporter::HistoryImporter(CoreDataStack &stack, IdentifierSource &identifiers, MainRunLoop &runLoop,
                                 QObject *parent)
    : QObject(parent)
    , m_stack(stack)
    , m_identifiers(identifiers)
    , m_disks(runLoop)
{
}

HistoryImporter::~HistoryImporter()
{
    m_queue.drain();
}

void HistoryImporter::importFile(const QString &path, std::function<void(const Result &)> done)
{
    m_disks.ask<Sessions>({{path.toUtf8(), [path] { return StatsCSVReader::read(path); }}}, readingPatience,
                          [this, path, done = std::move(done)](std::vector<std::optional<Sessions>> answers) {
                              if (!answers.front())
                                  return done(
                                      std::unexpected(QStringLiteral("%1: its disk does not answer").arg(path)));
                              Sessions &read = *answers.front();
                              if (!read)
                                  return done(std::unexpected(read.error()));
                              add(*std::move(read), done);
                          });
}

void HistoryImporter::add(std::vector<ImportedSession> sessions, const std::function<void(const Result &)> &done)
{
    m_queue.async([this, sessions = std::move(sessions), seed = m_identifiers.next(), done]() mutable {
        const Result result = addNow(m_stack, std::move(sessions), seed);
        QMetaObject::invokeMethod(
            this, [done, result] { done(result); }, Qt::QueuedConnection);
    });
}

}
