#pragma once

#include "Foundation/Calendar.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <functional>
#include <QtCore/QByteArray>

namespace tomcatto {

/// Prints ended phases one by one: as a table in English with a heading for each day, or as a JSON array with an object
/// in each line. Holds a piece of it in memory.
class SessionList final
{
public:
    using Sink = std::function<void(const QByteArray &piece)>;

    SessionList(bool isJson, Calendar calendar, Sink sink);

    void add(const PomodoroSessionRecord &record);
    /// Writes what closes the list.
    void end();

private:
    void addRow(const PomodoroSessionRecord &record);

    bool m_isJson;
    Calendar m_calendar;
    Sink m_sink;
    bool m_isEmpty = true;
    QDate m_day;
    QByteArray m_text;
};

}
