#include "StatisticsViews/StatisticsViewModel.h"

#include "Localization/DurationText.h"
#include "StatisticsViews/ChartScale.h"

#include <algorithm>

namespace tomcatto {
namespace {

QVariantMap part(const QString &text, bool isUnit)
{
    return {{QStringLiteral("text"), text}, {QStringLiteral("isUnit"), isUnit}};
}

QString titleKey(CalendarUnit unit)
{
    switch (unit) {
    case CalendarUnit::day:
    case CalendarUnit::weekOfYear:
        return QStringLiteral("stats.chart.title.day");
    case CalendarUnit::month:
        return QStringLiteral("stats.chart.title.month");
    case CalendarUnit::year:
        return QStringLiteral("stats.chart.title.year");
    }
    return {};
}

/// Leaves only so many labels that they do not touch, the last one among them.
void thinLabels(QVariantList &bars)
{
    constexpr qsizetype mostLabels = 8;
    const QString label = QStringLiteral("label");
    std::vector<qsizetype> labelled;
    for (qsizetype index = bars.size() - 1; index >= 0; --index) {
        if (!bars.at(index).toMap().value(label).toString().isEmpty())
            labelled.push_back(index);
    }
    const std::size_t step = labelled.size() / (mostLabels + 1) + 1;
    for (std::size_t place = 0; place < labelled.size(); ++place) {
        if (place % step == 0)
            continue;
        QVariantMap bar = bars.at(labelled[place]).toMap();
        bar.insert(label, QString());
        bars[labelled[place]] = bar;
    }
}

/// The level of a day's phases against the goal, 0 to 4.
int heatLevel(qint64 phases, qint64 goal)
{
    const qint64 whole = std::max<qint64>(goal, 1);
    return phases >= whole ? 4 : static_cast<int>((phases * 4 + whole - 1) / whole);
}

}

StatisticsViewModel::StatisticsViewModel(const Sources &sources, QObject *parent)
    : QObject(parent)
    , m_sources(sources)
{
    connect(&sources.aggregator, &StatsAggregator::changes, this, &StatisticsViewModel::rebuild);
    connect(&sources.strings, &LocalizedStrings::changed, this, &StatisticsViewModel::rebuild);
    connect(&sources.settings, &PomodoroSettings::changed, this, [this](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::dailyGoalPomodoros)
            rebuild();
    });
    m_cancellables.push_back(sources.wallClock.onDayChanged([this] { rebuild(); }));
}

void StatisticsViewModel::setShown(bool isShown)
{
    if (std::exchange(m_isShown, isShown) == isShown)
        return;
    if (isShown)
        return rebuild();
    m_figures = {};
    m_chartBars = {};
    m_heatCells = {};
}

StatsRange StatisticsViewModel::range() const
{
    return allStatsRanges.at(static_cast<std::size_t>(m_rangeIndex));
}

void StatisticsViewModel::selectRange(int index)
{
    if (index < 0 || index >= static_cast<int>(allStatsRanges.size()) || index == m_rangeIndex)
        return;
    m_rangeIndex = index;
    rebuild();
    Q_EMIT rangeChanged();
}

void StatisticsViewModel::rebuild()
{
    if (!m_isShown)
        return;
    const StatsRange range = this->range();
    m_rangeTexts.clear();
    for (const StatsRange each : allStatsRanges)
        m_rangeTexts.append(m_sources.strings.text(QStringLiteral("stats.range.") + rawValue(each)));
    rebuildFigures(range);
    rebuildChart(range);
    rebuildHeatMap();
    Q_EMIT changed();
}

void StatisticsViewModel::rebuildFigures(StatsRange range)
{
    const StatsAggregator &aggregator = m_sources.aggregator;
    const LocalizedStrings &strings = m_sources.strings;
    const DateInterval interval = aggregator.interval(range);
    const qint64 minutes = aggregator.focusMinutes(interval);
    const qint64 sessions = aggregator.completedWorkCount(interval);
    const QString caption = strings.text(QStringLiteral("stats.caption.") + rawValue(range));
    const auto figure = [&](const QString &label, const QVariantList &parts, const QString &value) {
        return QVariantMap{{QStringLiteral("label"), label},
                           {QStringLiteral("parts"), parts},
                           {QStringLiteral("name"),
                            strings.format(QStringLiteral("stats.figure.accessibility"), label, value, caption)}};
    };
    const auto number = [&](const QString &key, const QString &value) {
        return figure(strings.text(key), {part(value, false)}, value);
    };

    QVariantList time;
    if (minutes >= 60) {
        time = {part(QString::number(minutes / 60), false),
                part(strings.text(QStringLiteral("duration.unit.hours")), true)};
    }
    const int digits = minutes >= 60 ? 2 : 1;
    time.append(part(QStringLiteral("%1").arg(minutes % 60, digits, 10, QLatin1Char('0')), false));
    time.append(part(strings.text(QStringLiteral("duration.unit.minutes")), true));
    const qint64 average = aggregator.dailyAverage(aggregator.dayCount(range), 10);
    m_figures = {
        figure(strings.text(QStringLiteral("stats.figure.focus_time")), time, durationText(strings, 60 * minutes)),
        number(QStringLiteral("stats.figure.sessions"), QString::number(sessions)),
        number(QStringLiteral("stats.figure.streak_short"), QString::number(aggregator.currentStreak())),
        number(QStringLiteral("stats.figure.average"),
               strings.locale().toString(static_cast<double>(average) / 10, 'f', 1)),
    };
}

void StatisticsViewModel::rebuildChart(StatsRange range)
{
    const StatsChartLayout layout = m_sources.aggregator.chartLayout(range);
    const std::vector<FocusBucket> buckets = m_sources.aggregator.focusBuckets(layout.start, layout.bucketUnit);
    m_chartTitle = m_sources.strings.text(titleKey(layout.bucketUnit));
    m_chartBars.clear();
    qint64 peak = 0;
    for (const FocusBucket &bucket : buckets) {
        m_chartBars.append(bar(bucket, layout));
        peak = std::max(peak, bucket.minutes);
    }
    thinLabels(m_chartBars);
    rebuildTicks(peak);
    m_isEmpty = peak == 0;
    const bool hasHistory = m_sources.aggregator.earliestSessionDate().has_value();
    const QString empty = hasHistory ? QStringLiteral("stats.empty_range.") : QStringLiteral("stats.empty.");
    m_emptyTitle = m_sources.strings.text(empty + QStringLiteral("title"));
    m_emptyHelp = m_sources.strings.text(empty + QStringLiteral("help"));
}

void StatisticsViewModel::rebuildTicks(qint64 peak)
{
    const ChartScale scale = chartScale(peak);
    m_chartMaximum = static_cast<qreal>(scale.maximum);
    m_chartTicks.clear();
    for (const qint64 value : {qint64(0), scale.step, 2 * scale.step}) {
        const QString label = scale.isInHours && value > 0 ? m_sources.strings.format(QStringLiteral("duration.hours"),
                                                                                      QString::number(value / 60))
                                                           : QString::number(value);
        m_chartTicks.append(QVariantMap{{QStringLiteral("value"), value}, {QStringLiteral("label"), label}});
    }
}

QVariantMap StatisticsViewModel::bar(const FocusBucket &bucket, const StatsChartLayout &layout) const
{
    const LocalizedStrings &strings = m_sources.strings;
    const bool isNow = m_sources.wallClock.calendar().firstDay(layout.bucketUnit, today()) == bucket.start;
    QString when = dayText(bucket.start);
    if (layout.bucketUnit == CalendarUnit::month)
        when = strings.locale().toString(bucket.start, QStringLiteral("MMMM yyyy"));
    else if (layout.bucketUnit == CalendarUnit::year)
        when = QString::number(bucket.start.year());
    const QString text = strings.format(QStringLiteral("stats.chart.bar.accessibility"), when,
                                        durationText(strings, 60 * bucket.minutes));
    return {{QStringLiteral("value"), bucket.minutes},
            {QStringLiteral("label"), barLabel(bucket.start, layout)},
            {QStringLiteral("tip"), text},
            {QStringLiteral("name"), text},
            {QStringLiteral("today"), isNow}};
}

QString StatisticsViewModel::barLabel(QDate day, const StatsChartLayout &layout) const
{
    if (m_sources.wallClock.calendar().firstDay(layout.strideUnit, day) != day)
        return {};
    const LocalizedStrings &strings = m_sources.strings;
    const QLocale locale = strings.locale();
    switch (layout.bucketUnit) {
    case CalendarUnit::day:
        return layout.strideUnit == CalendarUnit::day
                   ? locale.standaloneDayName(day.dayOfWeek(), QLocale::ShortFormat)
                   : locale.toString(day, strings.text(QStringLiteral("date.day_month")));
    case CalendarUnit::weekOfYear:
        return locale.toString(day, strings.text(QStringLiteral("date.day_month")));
    case CalendarUnit::month:
        return locale.standaloneMonthName(day.month(), QLocale::ShortFormat);
    case CalendarUnit::year:
        return QString::number(day.year());
    }
    return {};
}

void StatisticsViewModel::rebuildHeatMap()
{
    const LocalizedStrings &strings = m_sources.strings;
    const std::vector<std::vector<qint64>> rows = m_sources.aggregator.weeklyHeatmap(heatWeeks);
    const QDate now = today();
    const QDate thisWeek = m_sources.wallClock.calendar().firstDay(CalendarUnit::weekOfYear, now);
    m_heatTitle = strings.format(QStringLiteral("stats.heatmap.title"), heatWeeks);
    m_heatCells.clear();
    for (int column = 0; column < heatWeeks; ++column) {
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            const QDate day = thisWeek.addDays((column - heatWeeks + 1) * 7 + row);
            const qint64 phases = rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
            const bool isToCome = day > now;
            const QString text = isToCome ? strings.format(QStringLiteral("stats.heatmap.cell_future"), dayText(day))
                                          : strings.plural(QStringLiteral("stats.heatmap.cell"), phases, dayText(day));
            m_heatCells.append(QVariantMap{
                {QStringLiteral("level"), isToCome ? -1 : heatLevel(phases, m_sources.settings.dailyGoalPomodoros())},
                {QStringLiteral("name"), text},
                {QStringLiteral("tip"), text},
                {QStringLiteral("today"), day == now}});
        }
    }
    m_heatDayLabels.clear();
    // Every other day is named; there is no room for more.
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        const int weekday = thisWeek.addDays(row).dayOfWeek();
        m_heatDayLabels.append(row % 2 == 0 ? strings.locale().standaloneDayName(weekday, QLocale::ShortFormat)
                                            : QString());
    }
}

QString StatisticsViewModel::dayText(QDate day) const
{
    return m_sources.strings.locale().toString(day, m_sources.strings.text(QStringLiteral("date.weekday_day_month")));
}

QDate StatisticsViewModel::today() const
{
    return m_sources.wallClock.calendar().dayOf(m_sources.wallClock.now());
}

}
