#include "Statistics/StatsCSVRow.h"

#include "Statistics/StatsCSVColumn.h"

#include <cmath>
#include <QtCore/QDate>

namespace tomcatto {

namespace {

const char *typeLabel(const QString &phase)
{
    const auto known = fromRawValue<PomodoroPhase>(phase).value_or(PomodoroPhase::idle);
    return StatsCSVColumn::types.at(static_cast<std::size_t>(known));
}

const char *statusLabel(const PomodoroSessionRecord &record)
{
    if (record.wasCompleted)
        return StatsCSVColumn::completed;
    return record.wasSkipped ? StatsCSVColumn::skipped : StatsCSVColumn::interrupted;
}

/// At least two digits.
void appendNumber(QByteArray &text, qint64 number)
{
    if (number >= 0 && number < 10)
        text += '0';
    text += QByteArray::number(number);
}

}

void StatsCSVRow::append(QByteArray &text, const PomodoroSessionRecord &record)
{
    if (!record.startedAt)
        return;
    text += typeLabel(record.phase);
    text += ',';
    appendNumber(text, record.actualDurationSeconds / 60);
    text += ':';
    appendNumber(text, record.actualDurationSeconds % 60);
    text += ',';
    text += statusLabel(record);
    text += ',';
    appendInstant(text, *record.startedAt);
    text += '\n';
}

void StatsCSVRow::appendInstant(QByteArray &text, Date date)
{
    constexpr qint64 secondsPerDay = 86'400;
    const auto instant = static_cast<qint64>(std::floor(secondsSince1970(date)));
    const qint64 second = (instant % secondsPerDay + secondsPerDay) % secondsPerDay;
    const qint64 day = (instant - second) / secondsPerDay;
    if (m_dayText.isEmpty() || day != m_day) {
        const QDate calendarDay = QDate(1970, 1, 1).addDays(day);
        m_day = day;
        m_dayText =
            QString::asprintf("%04d-%02d-%02dT", calendarDay.year(), calendarDay.month(), calendarDay.day()).toLatin1();
    }
    text += m_dayText;
    appendNumber(text, second / 3600);
    text += ':';
    appendNumber(text, second / 60 % 60);
    text += ':';
    appendNumber(text, second % 60);
    text += 'Z';
}

}
