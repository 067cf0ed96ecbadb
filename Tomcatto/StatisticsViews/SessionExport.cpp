#include "StatisticsViews/SessionExport.h"

#include "Statistics/StatsCSVExporter.h"

#include <QtCore/QPointer>

namespace tomcatto {

SessionExport::SessionExport(const StatsAggregator &aggregator, const LocalizedStrings &strings,
                             const WallClock &wallClock, SavePanel &savePanel)
    : m_aggregator(aggregator)
    , m_strings(strings)
    , m_wallClock(wallClock)
    , m_savePanel(savePanel)
{
}

void SessionExport::run(StatsRange range)
{
    const SavePanelRequest request{m_strings.text(QStringLiteral("stats.export.dialog_title")),
                                   defaultExportName(m_wallClock.now(), m_wallClock.calendar()),
                                   m_strings.text(QStringLiteral("stats.export.dialog_filter")), QStringLiteral("csv")};
    m_savePanel.ask(request, [self = QPointer(this), range](const QString &path) {
        if (self)
            self->write(range, path);
    });
}

void SessionExport::write(StatsRange range, const QString &path)
{
    const auto fail = [logger = m_logger](const QString &reason) {
        logger.error(QStringLiteral("CSV export failed: %1").arg(reason));
    };
    std::vector<PomodoroSessionRecord> records;
    const auto keep = [&records](const PomodoroSessionRecord &record) { records.push_back(record); };
    if (!m_aggregator.forEachSession(m_aggregator.interval(range), keep))
        return fail(StatsCSVExporter::unreadText());
    m_writes.start(path, [records = std::move(records), path, fail] {
        if (const auto written = StatsCSVExporter::write(records, path); !written)
            fail(written.error());
    });
}

}
