#include "CommandLine/SessionList.h"

#include "Foundation/EnumTexts.h"
#include "Platform/Ports/IdentifierSource.h"

#include <nlohmann/json.hpp>
#include <QtCore/QLocale>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

Json instantJson(const std::optional<Date> &date)
{
    return date ? Json(toIso8601(*date).toStdString()) : Json();
}

Json json(const PomodoroSessionRecord &record)
{
    return {{"id", identifierText(record.id).toStdString()},
            {"phase", record.phase.toStdString()},
            {"startedAt", instantJson(record.startedAt)},
            {"endedAt", instantJson(record.endedAt)},
            {"plannedSeconds", record.plannedDurationSeconds},
            {"actualSeconds", record.actualDurationSeconds},
            {"cycleIndex", record.cycleIndex},
            {"wasCompleted", record.wasCompleted},
            {"wasSkipped", record.wasSkipped}};
}

QString phaseName(const QString &phase)
{
    constexpr std::array names{"Unknown", "Focus", "Short break", "Long break"};
    return textOf(names, fromRawValue<PomodoroPhase>(phase).value_or(PomodoroPhase::idle));
}

QString state(const PomodoroSessionRecord &record)
{
    if (record.wasCompleted)
        return QStringLiteral("completed");
    return record.wasSkipped ? QStringLiteral("skipped") : QStringLiteral("interrupted");
}

QString lengthText(qint64 seconds)
{
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(std::abs(seconds % 60), 2, 10, QLatin1Char('0'));
}

}

SessionList::SessionList(bool isJson, Calendar calendar, Sink sink)
    : m_isJson(isJson)
    , m_calendar(std::move(calendar))
    , m_sink(std::move(sink))
{
}

void SessionList::add(const PomodoroSessionRecord &record)
{
    if (m_isJson)
        m_text += (m_isEmpty ? "[\n" : ",\n") + QByteArray::fromStdString(json(record).dump());
    else
        addRow(record);
    m_isEmpty = false;
    constexpr qsizetype pieceSize = qsizetype{64} * 1024;
    if (m_text.size() < pieceSize)
        return;
    m_sink(m_text);
    m_text.resize(0);
}

void SessionList::end()
{
    if (m_isJson)
        m_text += m_isEmpty ? "[]\n" : "\n]\n";
    else if (m_isEmpty)
        m_text += "Nothing in this range.\n";
    m_sink(m_text);
}

void SessionList::addRow(const PomodoroSessionRecord &record)
{
    const auto clock = [this](const std::optional<Date> &date) {
        return date ? toDateTime(*date).toTimeZone(m_calendar.timeZone).toString(QStringLiteral("HH:mm"))
                    : QStringLiteral("     ");
    };
    // Only records with a start are asked for.
    const QDate day = m_calendar.dayOf(record.startedAt.value_or(Date()));
    if (day != m_day)
        m_text +=
            (m_isEmpty ? "" : "\n") + QLocale::c().toString(day, QStringLiteral("dddd, d MMMM yyyy")).toUtf8() + '\n';
    m_day = day;
    m_text += QStringLiteral("  %1 – %2  %3 %4  %5  %6\n")
                  .arg(clock(record.startedAt), clock(record.endedAt), phaseName(record.phase).leftJustified(11),
                       lengthText(record.actualDurationSeconds).rightJustified(6), state(record).leftJustified(11),
                       identifierText(record.id))
                  .toUtf8();
}

}
