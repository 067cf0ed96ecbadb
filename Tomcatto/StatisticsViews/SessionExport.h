#pragma once

#include "Foundation/DetachedJobs.h"
#include "Foundation/Logger.h"
#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/SavePanel.h"
#include "Statistics/StatsAggregator.h"

namespace tomcatto {

/// Saves the phases of a range as a file of comma-separated text where the user wants it. Main thread only.
class SessionExport final : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives it.
    SessionExport(const StatsAggregator &aggregator, const LocalizedStrings &strings, const WallClock &wallClock,
                  SavePanel &savePanel);

    /// Asks for a place and writes the file there, on a thread of its own; what fails is logged. The end of the export
    /// waits a moment for what is still being written.
    void run(StatsRange range);

private:
    void write(StatsRange range, const QString &path);

    const StatsAggregator &m_aggregator;
    const LocalizedStrings &m_strings;
    const WallClock &m_wallClock;
    SavePanel &m_savePanel;
    Logger m_logger{QStringLiteral("SessionExport")};
    /// The disk that the user chose may be slow.
    DetachedJobs m_writes;
};

}
