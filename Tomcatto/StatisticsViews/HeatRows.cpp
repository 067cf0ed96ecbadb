#include "StatisticsViews/HeatRows.h"

#include <algorithm>

namespace tomcatto {
namespace {

/// The level of a day's phases against the goal, 0 to 4.
int heatLevel(qint64 phases, qint64 goal)
{
    const qint64 whole = std::max<qint64>(goal, 1);
    return phases >= whole ? 4 : static_cast<int>((phases * 4 + whole - 1) / whole);
}

QVariantMap cell(const StatisticsSources &sources, QDate day, qint64 phases)
{
    const QDate now = sources.today();
    const LocalizedStrings &strings = sources.strings;
    const QString date = sources.dayText(day);
    const QString text = day > now ? strings.format(QStringLiteral("stats.heatmap.cell_future"), date)
                                   : strings.plural(QStringLiteral("stats.heatmap.cell"), phases, date);
    return {{QStringLiteral("level"), day > now ? -1 : heatLevel(phases, sources.settings.dailyGoalPomodoros())},
            {QStringLiteral("name"), text},
            {QStringLiteral("tip"), text},
            {QStringLiteral("today"), day == now}};
}

/// A week belongs to the month of its fourth day, which most of its days share.
QVariantList monthLabels(const QLocale &locale, QDate firstWeek)
{
    QVariantList labels;
    int month = 0;
    for (int column = 0; column < HeatRows::weeks; ++column) {
        const QDate middle = firstWeek.addDays(7 * column + 3);
        if (std::exchange(month, middle.month()) == middle.month())
            continue;
        // The end of a month has no room beside the next one.
        if (column == 1)
            labels.clear();
        labels.append(
            QVariantMap{{QStringLiteral("column"), column},
                        {QStringLiteral("text"), locale.standaloneMonthName(middle.month(), QLocale::ShortFormat)}});
    }
    return labels;
}

}

HeatRows heatRows(const StatisticsSources &sources, StatisticsForm form)
{
    const std::vector<std::vector<qint64>> counts = sources.aggregator.weeklyHeatmap(HeatRows::weeks);
    const QLocale locale = sources.strings.locale();
    const QDate firstWeek = sources.aggregator.heatmapStart(HeatRows::weeks);
    HeatRows rows;
    rows.title = sources.strings.format(QStringLiteral("stats.heatmap.title"), HeatRows::weeks);
    QDate day = firstWeek;
    for (std::size_t column = 0; column < HeatRows::weeks; ++column) {
        for (const std::vector<qint64> &weekday : counts) {
            rows.cells.append(cell(sources, day, weekday[column]));
            day = day.addDays(1);
        }
    }
    const bool namesAll = form == StatisticsForm::page;
    for (int row = 0; row < 7; ++row) {
        const int weekday = firstWeek.addDays(row).dayOfWeek();
        rows.dayLabels.append(namesAll || row % 2 == 0 ? locale.standaloneDayName(weekday, QLocale::ShortFormat)
                                                       : QString());
    }
    if (namesAll)
        rows.monthLabels = monthLabels(locale, firstWeek);
    return rows;
}

}
