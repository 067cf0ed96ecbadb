#pragma once

#include "Persistence/Repositories/SessionImport.h"

#include <expected>
#include <QtCore/QByteArrayView>

class QIODevice;

namespace tomcatto {

/// Reads back what `StatsCSVExporter` writes, and nothing else; a line may end in a carriage return and a line feed,
/// and the last one may lack its end. Any thread.
class StatsCSVReader final
{
public:
    /// The largest file that is read, in bytes: some three million phases.
    static constexpr qint64 largestFile = qint64{128} << 20;

    /// The phases in the order of the file. The error is one line for people that names the file and, where that is it,
    /// the line.
    [[nodiscard]] static std::expected<std::vector<ImportedSession>, QString> read(const QString &path);

private:
    /// Takes one line; the error says what is wrong with it.
    [[nodiscard]] std::expected<void, QString> take(QByteArrayView line);
    [[nodiscard]] std::expected<void, QString> takeAll(QIODevice &file);

    std::vector<ImportedSession> m_sessions;
    qint64 m_lines = 0;
};

}
