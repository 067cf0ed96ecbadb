#include "CommandLine/HistoryReports.h"

#include "CommandLine/SessionList.h"
#include "CommandLine/StatsTable.h"
#include "Composition/HistoryCommands.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Statistics/StatsAggregator.h"
#include "Statistics/StatsCSVExporter.h"
#include "Statistics/StatsReport.h"
#include "Timer/PomodoroSettings.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

/// Whether there is certainly no file: a folder that may not be searched, or a file in a folder's place, could hide
/// one.
bool isMissing(const QString &path)
{
    const QFileInfo folder(QFileInfo(path).path());
    return !folder.exists() || (folder.isDir() && folder.isExecutable() && !QFileInfo::exists(path));
}

ControlReply unreadHistory()
{
    return controlReply(ExitStatus::failed, StatsCSVExporter::unreadText());
}

}

bool HistoryReports::hasNoStore(const std::optional<QString> &applicationSupportDirectory)
{
    return applicationSupportDirectory && isMissing(CoreDataStack::storePath(*applicationSupportDirectory));
}

ControlReply HistoryReports::stats(const Invocation &invocation) const
{
    return onHistory([&](const StatsAggregator &aggregator) {
        const auto defaults = m_surroundings.openDefaults(true);
        const PomodoroSettings settings(*defaults);
        const StatsReport figures = gatherStatsReport(aggregator, invocation.range, settings.dailyGoalPomodoros());
        return controlReply(ExitStatus::done, invocation.isJson
                                                  ? QString::fromStdString(toJson(figures).dump())
                                                  : statsTable(figures, m_surroundings.outputDisplay()).trimmed());
    });
}

ControlReply HistoryReports::list(const Invocation &invocation) const
{
    return onHistory([&](const StatsAggregator &aggregator) {
        PrintOutcome printed = PrintOutcome::printed;
        SessionList list(invocation.isJson, m_surroundings.wallClock.calendar(), [&](const QByteArray &piece) {
            if (printed == PrintOutcome::printed)
                printed = m_surroundings.write(piece);
        });
        const bool isRead = aggregator.forEachSession(
            aggregator.interval(invocation.range), [&list](const PomodoroSessionRecord &record) { list.add(record); });
        // A half list must not look like a whole one.
        if (isRead)
            list.end();
        return controlReply(printed == PrintOutcome::failed ? ExitStatus::failed : ExitStatus::done, {});
    });
}

ControlReply HistoryReports::exportSessions(const Invocation &invocation) const
{
    return onHistory([&](const StatsAggregator &aggregator) {
        if (invocation.text == QStringLiteral("-"))
            return exportToOutput(aggregator, invocation.range);
        const auto written = exportRange(aggregator, invocation.range, invocation.text);
        return written ? ControlReply{} : controlReply(ExitStatus::failed, written.error());
    });
}

ControlReply HistoryReports::backUp(const Invocation &invocation) const
{
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (!support || hasNoStore(support))
        return controlReply(ExitStatus::notApplicable, QStringLiteral("There is no history yet."));
    const auto copied = backUpStore(CoreDataStack::storePath(*support), invocation.text);
    return copied ? ControlReply{} : replyTo(std::unexpected(copied.error()));
}

ControlReply HistoryReports::exportToOutput(const StatsAggregator &aggregator, StatsRange range) const
{
    PrintOutcome printed = PrintOutcome::printed;
    const auto sink = [&](const QByteArray &piece) {
        printed = m_surroundings.write(piece);
        return printed == PrintOutcome::printed;
    };
    const auto records = [&](const auto &visit) {
        return aggregator.forEachSession(aggregator.interval(range), visit);
    };
    switch (StatsCSVExporter::write(records, sink)) {
    case StatsCSVExporter::Outcome::written:
        return {};
    case StatsCSVExporter::Outcome::unread:
        return unreadHistory();
    case StatsCSVExporter::Outcome::refused:
        break;
    }
    // Otherwise the failure has been told.
    const bool isClosed = printed == PrintOutcome::nobodyReads;
    return controlReply(ExitStatus::failed,
                        isClosed ? QStringLiteral("Standard output was closed before the end.") : QString());
}

ControlReply HistoryReports::onHistory(const std::function<ControlReply(const StatsAggregator &)> &report) const
{
    const auto &support = m_surroundings.applicationSupportDirectory;
    std::optional<CoreDataStack> stack;
    std::optional<SessionRepository> repository;
    const SessionHistory empty;
    bool hasFailed = false;
    if (!hasNoStore(support)) {
        stack.emplace(support);
        repository.emplace(*stack, m_surroundings.wallClock);
        QObject::connect(&*repository, &SessionRepository::fetchFailed, &*repository,
                         [&hasFailed] { hasFailed = true; });
    }
    const StatsAggregator aggregator(repository ? *repository : empty, m_surroundings.wallClock);
    const ControlReply reply = report(aggregator);
    return hasFailed ? unreadHistory() : reply;
}

}
