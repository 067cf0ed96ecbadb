#include "StatisticsViews/FocusChart.h"

#include "Foundation/EnumTexts.h"
#include "StatisticsViews/ChartScale.h"
#include "StatisticsViews/FigureRows.h"

#include <algorithm>

namespace tomcatto {
namespace {

// In the order of `CalendarUnit`.
constexpr std::array titleKeys{"stats.chart.title.day", "stats.chart.title.day", "stats.chart.title.month",
                               "stats.chart.title.year"};

QString barLabel(const StatisticsSources &sources, QDate day, const StatsChartLayout &layout)
{
    if (sources.wallClock.calendar().firstDay(layout.strideUnit, day) != day)
        return {};
    const QLocale locale = sources.strings.locale();
    switch (layout.bucketUnit) {
    case CalendarUnit::day:
        if (layout.strideUnit == CalendarUnit::day)
            return locale.standaloneDayName(day.dayOfWeek(), QLocale::ShortFormat);
        [[fallthrough]];
    case CalendarUnit::weekOfYear:
        return locale.toString(day, sources.strings.text(QStringLiteral("date.day_month")));
    case CalendarUnit::month:
        return locale.standaloneMonthName(day.month(), QLocale::ShortFormat);
    case CalendarUnit::year:
        return QString::number(day.year());
    }
    return {};
}

QString barDate(const StatisticsSources &sources, QDate day, CalendarUnit unit)
{
    switch (unit) {
    case CalendarUnit::day:
    case CalendarUnit::weekOfYear:
        return sources.dayText(day);
    case CalendarUnit::month:
        return sources.strings.locale().toString(day, QStringLiteral("MMMM yyyy"));
    case CalendarUnit::year:
        return QString::number(day.year());
    }
    return {};
}

/// @param tellsAll whether the tip names the day as well, since no label below the bar does
QVariantMap barRow(const StatisticsSources &sources, const FocusBucket &bucket, const StatsChartLayout &layout,
                   bool tellsAll)
{
    const QString value = focusText(sources.strings, bucket.minutes);
    const QString name = sources.strings.format(QStringLiteral("stats.chart.bar.accessibility"),
                                                barDate(sources, bucket.start, layout.bucketUnit), value);
    const QDate current = sources.wallClock.calendar().firstDay(layout.bucketUnit, sources.today());
    return {{QStringLiteral("value"), bucket.minutes},
            {QStringLiteral("label"), barLabel(sources, bucket.start, layout)},
            {QStringLiteral("tip"), tellsAll ? name : value},
            {QStringLiteral("name"), name},
            {QStringLiteral("today"), bucket.start == current}};
}

QString tickLabel(const LocalizedStrings &strings, qint64 minutes, bool isInHours, StatisticsForm form)
{
    if (minutes > 0 && isInHours)
        return strings.format(QStringLiteral("duration.hours"), strings.locale().toString(minutes / 60));
    return minutes > 0 && form == StatisticsForm::page ? strings.format(QStringLiteral("duration.minutes"), minutes)
                                                       : QString::number(minutes);
}

}

FocusChart focusChart(const StatisticsSources &sources, StatsRange range, StatisticsForm form)
{
    const StatsChartLayout layout = sources.aggregator.chartLayout(range);
    const std::vector<FocusBucket> buckets = sources.aggregator.focusBuckets(layout.start, layout.bucketUnit);
    const bool isPage = form == StatisticsForm::page;
    FocusChart chart;
    chart.title = sources.strings.text(textOf(titleKeys, layout.bucketUnit));
    qint64 peak = 0;
    for (const FocusBucket &bucket : buckets) {
        chart.bars.append(barRow(sources, bucket, layout, !isPage || layout.strideUnit != layout.bucketUnit));
        peak = std::max(peak, bucket.minutes);
    }
    chart.isEmpty = peak == 0;
    const ChartScale scale = isPage ? chartScaleAbove(peak) : chartScale(peak);
    chart.maximum = static_cast<qreal>(scale.maximum);
    for (qint64 value = 0; value <= (isPage ? 3 : 2) * scale.step; value += scale.step) {
        chart.ticks.append(
            QVariantMap{{QStringLiteral("value"), value},
                        {QStringLiteral("label"), tickLabel(sources.strings, value, scale.isInHours, form)}});
    }
    return chart;
}

}
