#include "StatisticsViews/SessionTexts.h"

#include "Foundation/EnumTexts.h"
#include "Localization/DurationText.h"

namespace tomcatto {

QString SessionTexts::name(PomodoroPhase phase) const
{
    constexpr std::array keys{"menubar.phase.work", "menubar.phase.work", "menubar.phase.short_break",
                              "menubar.phase.long_break"};
    return strings.text(textOf(keys, phase));
}

QString SessionTexts::times(const EndedPhase &phase) const
{
    if (!phase.startedAt)
        return {};
    const QString start = time(*phase.startedAt);
    return phase.endedAt ? strings.format(QStringLiteral("stats.log.times"), start, time(*phase.endedAt)) : start;
}

QString SessionTexts::length(const EndedPhase &phase) const
{
    const qint64 actual = std::max<qint64>(phase.actualSeconds, 0);
    const qint64 minutes = actual / 60;
    const qint64 planned = phase.plannedSeconds / 60;
    const bool isShort = !phase.wasCompleted && actual < phase.plannedSeconds;
    if (isShort && minutes > 0 && planned > minutes)
        return strings.format(QStringLiteral("stats.log.length_of"), minutes, planned);
    if (isShort && minutes == 0)
        return strings.format(QStringLiteral("stats.log.seconds_of"), durationText(strings, actual),
                              durationText(strings, phase.plannedSeconds));
    if (planned > 0 && minutes > planned)
        return strings.format(QStringLiteral("stats.log.length_over"), minutes, minutes - planned);
    return plainLength(phase);
}

QString SessionTexts::plainLength(const EndedPhase &phase) const
{
    const qint64 minutes = phase.actualSeconds / 60;
    return minutes > 0 ? strings.format(QStringLiteral("stats.log.length"), minutes)
                       : durationText(strings, phase.actualSeconds);
}

QString SessionTexts::outcome(const EndedPhase &phase) const
{
    if (phase.wasCompleted)
        return strings.text(QStringLiteral("stats.log.done"));
    return strings.text(phase.wasSkipped ? QStringLiteral("stats.log.skipped") : QStringLiteral("stats.log.stopped"));
}

QString SessionTexts::day(QDate day, QDate today) const
{
    if (day == today)
        return strings.text(QStringLiteral("stats.log.today"));
    if (day.addDays(1) == today)
        return strings.text(QStringLiteral("stats.log.yesterday"));
    const QLocale locale = strings.locale();
    const QString text =
        locale.toString(day, strings.text(day.year() == today.year() ? QStringLiteral("date.weekday_day_month")
                                                                     : QStringLiteral("date.weekday_day_month_year")));
    // It heads a list; some languages write their weekdays small.
    return locale.toUpper(text.left(1)) + text.mid(1);
}

QString SessionTexts::shortDay(QDate date, QDate today) const
{
    const auto written = [&](const char *key) {
        return strings.locale().toString(date, strings.text(QStringLiteral("stats.add.day.") + QLatin1String(key)));
    };
    if (date.daysTo(today) < 2)
        return strings.format(QStringLiteral("stats.add.day.near"), day(date, today), written("date"));
    return written(date.year() == today.year() ? "other" : "other_year");
}

QString SessionTexts::summary(const EndedPhase &phase) const
{
    return strings.format(QStringLiteral("stats.log.summary"), name(phase.phase), plainLength(phase));
}

QString SessionTexts::time(Date date) const
{
    const QTime local = toDateTime(date).toTimeZone(calendar.timeZone).time();
    return strings.locale().toString(local, calendar.timeFormat);
}

}
