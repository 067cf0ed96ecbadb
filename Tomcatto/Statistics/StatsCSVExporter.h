#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Statistics/StatsRange.h"

#include <expected>
#include <functional>
#include <QtCore/QByteArray>

namespace tomcatto {

class StatsAggregator;

/// Writes ended phases as comma-separated text in UTF-8: a header, then one line for each phase that has a start, in
/// the order they arrive. Holds no more of it in memory than a piece. Any thread that may read the records.
class StatsCSVExporter final
{
public:
    /// Hands every record to a visitor. @return whether all were read
    using Records = std::function<bool(const std::function<void(const PomodoroSessionRecord &)> &visit)>;
    /// Takes the next piece of the text. @return whether it could
    using Sink = std::function<bool(const QByteArray &piece)>;

    /// What became of an export that has no file of its own.
    enum class Outcome {
        written,
        /// The records could not all be read.
        unread,
        /// The sink did not take a piece, and was given no other.
        refused,
    };
    /// Nothing, or one line for people that names the file.
    using Result = std::expected<void, QString>;

    /// Hands the text to the sink in pieces.
    [[nodiscard]] static Outcome write(const Records &records, const Sink &sink);
    /// Writes a file, which is there as a whole or as it was before. A link's target is written, permissions stay as
    /// they are. What is not a file, such as a pipe, is written as the text comes.
    [[nodiscard]] static Result write(const Records &records, const QString &path);
    /// The same for records that are there already.
    [[nodiscard]] static Result write(const std::vector<PomodoroSessionRecord> &records, const QString &path);

    /// What to tell people after `Outcome::unread`.
    [[nodiscard]] static QString unreadText();
};

/// Writes the phases of a range, all kinds, newest first, to a file. Main thread only; takes about a second for a
/// million.
[[nodiscard]] StatsCSVExporter::Result exportRange(const StatsAggregator &aggregator, StatsRange range,
                                                   const QString &path);

/// The name that an exported file gets unless another is chosen, such as "tomcatto-sessions-2025-03-04.csv".
[[nodiscard]] QString defaultExportName(Date now, const Calendar &calendar);

}
