#include "Statistics/StatsCSVExporter.h"

#include "Statistics/StatsAggregator.h"
#include "Statistics/StatsCSVColumn.h"
#include "Statistics/StatsCSVRow.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tomcatto {

namespace {

constexpr qsizetype pieceSize = qsizetype{64} * 1024;

using Result = StatsCSVExporter::Result;

Result failure(const QString &path, const QString &reason)
{
    return std::unexpected(QStringLiteral("%1: %2").arg(path, reason));
}

/// A disk that fills up takes a part at first, and tells why with the rest.
bool writeWhole(QIODevice &device, const QByteArray &piece)
{
    qint64 written = 0;
    for (qint64 done = 0; done < piece.size(); done += written) {
        written = device.write(piece.constData() + done, piece.size() - done);
        if (written <= 0)
            return false;
    }
    return true;
}

/// Writes to an open device, whose error tells why it failed.
Result writeTo(QFileDevice &device, const StatsCSVExporter::Records &records, const QString &path)
{
    const auto sink = [&device](const QByteArray &piece) { return writeWhole(device, piece); };
    switch (StatsCSVExporter::write(records, sink)) {
    case StatsCSVExporter::Outcome::written:
        return {};
    case StatsCSVExporter::Outcome::unread:
        return std::unexpected(StatsCSVExporter::unreadText());
    case StatsCSVExporter::Outcome::refused:
        break;
    }
    return failure(path, device.errorString());
}

/// A device or a pipe cannot be replaced, and must not be.
bool isSpecial(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() && !file.isFile() && !file.isDir();
}

Result writeSpecial(const StatsCSVExporter::Records &records, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return failure(path, file.errorString());
    return writeTo(file, records, path);
}

}

StatsCSVExporter::Outcome StatsCSVExporter::write(const Records &records, const Sink &sink)
{
    QByteArray text;
    text.reserve(pieceSize * 2);
    text += StatsCSVColumn::header;
    text += '\n';
    bool isTaken = true;
    StatsCSVRow row;
    const bool isRead = records([&](const PomodoroSessionRecord &record) {
        if (!isTaken)
            return;
        row.append(text, record);
        if (text.size() >= pieceSize) {
            isTaken = sink(text);
            text.resize(0);
        }
    });
    if (!isRead)
        return Outcome::unread;
    return isTaken && sink(text) ? Outcome::written : Outcome::refused;
}

Result StatsCSVExporter::write(const Records &records, const QString &path)
{
    if (isSpecial(path))
        return writeSpecial(records, path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return failure(path, file.errorString());
    if (auto written = writeTo(file, records, path); !written)
        return written;
    return file.commit() ? Result() : failure(path, file.errorString());
}

Result StatsCSVExporter::write(const std::vector<PomodoroSessionRecord> &records, const QString &path)
{
    const auto visitAll = [&records](const auto &visit) {
        for (const PomodoroSessionRecord &record : records)
            visit(record);
        return true;
    };
    return write(visitAll, path);
}

QString StatsCSVExporter::unreadText()
{
    return QStringLiteral("The history cannot be read; the log says why.");
}

Result exportRange(const StatsAggregator &aggregator, StatsRange range, const QString &path)
{
    const auto records = [&](const auto &visit) {
        return aggregator.forEachSession(aggregator.interval(range), visit);
    };
    return StatsCSVExporter::write(records, path);
}

QString defaultExportName(Date now, const Calendar &calendar)
{
    return QStringLiteral("tomcatto-sessions-%1.csv").arg(calendar.dayOf(now).toString(Qt::ISODate));
}

}
