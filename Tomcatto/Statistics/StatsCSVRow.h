#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <QtCore/QByteArray>

namespace tomcatto {

/// Formats records as lines of the exported file. Keeps the text of the last day, as neighbours mostly share it.
class StatsCSVRow final
{
public:
    /// Appends the record's line: type, duration as minutes and seconds, status and start in UTC, with a line feed. A
    /// record without a start has no line.
    void append(QByteArray &text, const PomodoroSessionRecord &record);

private:
    void appendInstant(QByteArray &text, Date date);

    qint64 m_day = 0;
    QByteArray m_dayText;
};

}
