#include "StatisticsViews/FigureRows.h"

#include "Localization/DurationText.h"

namespace tomcatto {
namespace {

/// From here on minutes are left out.
constexpr qint64 wholeHoursFrom = 6000;

QVariantMap part(const QString &text, bool isUnit)
{
    return {{QStringLiteral("text"), text}, {QStringLiteral("isUnit"), isUnit}};
}

class Figures
{
public:
    Figures(const StatisticsSources &sources, StatsRange range)
        : m_aggregator(sources.aggregator)
        , m_strings(sources.strings)
        , m_range(range)
        , m_caption(text(QStringLiteral("stats.caption.") + rawValue(range)))
    {
    }

    [[nodiscard]] QVariantMap focusTime() const
    {
        const qint64 minutes = m_aggregator.focusMinutes(m_aggregator.interval(m_range));
        const bool isWhole = minutes >= wholeHoursFrom;
        return figure(QStringLiteral("stats.figure.focus_time"), timeParts(minutes), focusText(m_strings, minutes),
                      m_caption, isWhole ? durationText(m_strings, 60 * minutes) : QString());
    }
    [[nodiscard]] QVariantMap sessions() const
    {
        const QString count = number(m_aggregator.completedWorkCount(m_aggregator.interval(m_range)));
        return figure(QStringLiteral("stats.figure.sessions"), {part(count, false)}, count, m_caption,
                      m_strings.format(QStringLiteral("stats.figure.sessions.tip"), number(m_aggregator.todayCount()),
                                       number(m_aggregator.completedThisWeek()),
                                       number(m_aggregator.completedThisMonth())));
    }
    [[nodiscard]] QVariantMap streak(const QString &label) const
    {
        const QString days = number(m_aggregator.currentStreak());
        return figure(label, {part(days, false)}, days,
                      m_strings.format(QStringLiteral("stats.caption.best"), number(m_aggregator.bestStreak())));
    }
    /// Its days are not those of the others: the calendar's week is not the last seven days.
    [[nodiscard]] QVariantMap average() const
    {
        const qint64 days = m_aggregator.dayCount(m_range);
        const qint64 tenths = m_aggregator.dailyAverage(days, 10);
        const QString value =
            tenths == 0 ? number(0) : m_strings.locale().toString(static_cast<double>(tenths) / 10, 'f', 1);
        const QString unit = text(QStringLiteral("stats.caption.sessions"));
        const QString caption = days == 1 ? text(QStringLiteral("stats.caption.today"))
                                          : m_strings.format(QStringLiteral("stats.caption.last_days"), number(days));
        return figure(QStringLiteral("stats.figure.average"), {part(value, false), part(unit, true)},
                      m_strings.format(QStringLiteral("duration.spoken.join"), value, unit), caption);
    }

private:
    [[nodiscard]] QString text(const QString &key) const { return m_strings.text(key); }
    [[nodiscard]] QString number(qint64 value) const { return m_strings.locale().toString(value); }

    [[nodiscard]] QVariantMap figure(const QString &key, const QVariantList &parts, const QString &value,
                                     const QString &caption, const QString &tip = {}) const
    {
        const QString label = text(key);
        return {{QStringLiteral("label"), label},
                {QStringLiteral("parts"), parts},
                {QStringLiteral("caption"), caption},
                {QStringLiteral("tip"), tip},
                {QStringLiteral("name"),
                 m_strings.format(QStringLiteral("stats.figure.accessibility"), label, value, caption)}};
    }

    [[nodiscard]] QVariantList timeParts(qint64 minutes) const
    {
        QVariantList parts;
        if (minutes >= 60) {
            parts = {part(number(minutes / 60), false), part(text(QStringLiteral("duration.unit.hours")), true)};
            if (minutes >= wholeHoursFrom)
                return parts;
        }
        const int digits = minutes >= 60 ? 2 : 1;
        parts.append(part(QStringLiteral("%1").arg(minutes % 60, digits, 10, QLatin1Char('0')), false));
        parts.append(part(text(QStringLiteral("duration.unit.minutes")), true));
        return parts;
    }

    const StatsAggregator &m_aggregator;
    const LocalizedStrings &m_strings;
    StatsRange m_range;
    QString m_caption;
};

}

QString focusText(const LocalizedStrings &strings, qint64 minutes)
{
    return minutes >= wholeHoursFrom
               ? strings.format(QStringLiteral("duration.hours"), strings.locale().toString(minutes / 60))
               : durationText(strings, 60 * minutes);
}

QVariantList figureRows(const StatisticsSources &sources, StatsRange range, StatisticsForm form)
{
    const Figures figures(sources, range);
    return {figures.focusTime(), figures.sessions(),
            figures.streak(form == StatisticsForm::panel ? QStringLiteral("stats.figure.streak_short")
                                                         : QStringLiteral("stats.figure.streak")),
            figures.average()};
}

}
