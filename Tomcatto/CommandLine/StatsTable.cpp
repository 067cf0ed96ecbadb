#include "CommandLine/StatsTable.h"

#include "Foundation/EnumTexts.h"

#include <algorithm>
#include <QtCore/QLocale>

namespace tomcatto {

namespace {

// Longer bars do not tell more, only the eye goes further.
constexpr qint64 widestBar = 60;
// A lone phase among bars that are relative to each other shall not look like a day's work.
constexpr qint64 shortestScale = 60;

QString titled(const QString &title, const OutputDisplay &display)
{
    return display.hasColours ? QStringLiteral("\x1b[1m") + title + QStringLiteral("\x1b[0m") : title;
}

QString rangeTitle(StatsRange range)
{
    return textOf(std::array{"Today", "This week", "This month", "All time"}, range);
}

QString durationText(qint64 minutes)
{
    if (minutes < 60)
        return QStringLiteral("%1 min").arg(minutes);
    return QStringLiteral("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

QString daysText(qint64 days)
{
    return days == 1 ? QStringLiteral("1 day") : QStringLiteral("%1 days").arg(days);
}

QString averageText(const StatsReport &report)
{
    const QString average = QString::number(static_cast<double>(report.dailyAverageTenths) / 10, 'f', 1);
    return QStringLiteral("%1 a day over %2").arg(average, daysText(report.dailyAverageDays));
}

QString line(const QString &name, const QString &value)
{
    constexpr int valueColumn = 18;
    return name.leftJustified(valueColumn) + value + u'\n';
}

QString unitName(CalendarUnit unit)
{
    return textOf(std::array{"day", "week", "month", "year"}, unit);
}

QString bucketName(const FocusBucket &bucket, CalendarUnit unit)
{
    const auto format = textOf(std::array{"ddd d MMM", "d MMM", "MMM yyyy", "yyyy"}, unit);
    return QLocale::c().toString(bucket.start, format);
}

/// A bar of eighths of columns; what is more than nothing can be seen.
QString bar(qint64 minutes, qint64 scale, qint64 columns)
{
    const qint64 eighths = minutes > 0 ? std::max<qint64>(1, minutes * columns * 8 / scale) : 0;
    QString blocks(static_cast<qsizetype>(eighths / 8), QChar(0x2588));
    if (const auto rest = static_cast<char16_t>(eighths % 8); rest > 0)
        blocks += QChar(static_cast<char16_t>(0x2590 - rest));
    return blocks;
}

QString chartLine(const QString &head, const QString &blocks, const OutputDisplay &display)
{
    if (blocks.isEmpty())
        return head + u'\n';
    const auto form = display.hasColours ? QStringLiteral("%1  \x1b[31m%2\x1b[0m\n") : QStringLiteral("%1  %2\n");
    return form.arg(head, blocks);
}

QString chart(const StatsReport &report, const OutputDisplay &display)
{
    qint64 scale = shortestScale;
    qsizetype names = 0;
    qsizetype values = 0;
    for (const FocusBucket &bucket : report.focusBuckets) {
        scale = std::max(scale, bucket.minutes);
        names = std::max(names, bucketName(bucket, report.chart.bucketUnit).size());
        values = std::max(values, durationText(bucket.minutes).size());
    }
    const qint64 columns = std::clamp<qint64>(display.columns - names - values - 6, 1, widestBar);
    QString text = titled(QStringLiteral("Focus by ") + unitName(report.chart.bucketUnit), display) + u'\n';
    for (const FocusBucket &bucket : report.focusBuckets) {
        const QString head = QStringLiteral("  ") + bucketName(bucket, report.chart.bucketUnit).leftJustified(names) +
                             QStringLiteral("  ") + durationText(bucket.minutes).rightJustified(values);
        text += chartLine(head, bar(bucket.minutes, scale, columns), display);
    }
    return text;
}

}

QString statsTable(const StatsReport &report, const OutputDisplay &display)
{
    if (report.bestStreak == 0)
        return QStringLiteral("Nothing here yet. Your first finished focus phase shows up here.\n");
    return titled(rangeTitle(report.range), display) + u'\n' +
           line(QStringLiteral("  Focus phases"), QString::number(report.completedWorkCount)) +
           line(QStringLiteral("  Focus time"), durationText(report.focusMinutes)) +
           line(QStringLiteral("  Average"), averageText(report)) + u'\n' +
           line(QStringLiteral("Today"), QStringLiteral("%1 of %2").arg(report.todayCount).arg(report.dailyGoal)) +
           line(QStringLiteral("This week"), QString::number(report.completedThisWeek)) +
           line(QStringLiteral("This month"), QString::number(report.completedThisMonth)) +
           line(QStringLiteral("Current streak"), daysText(report.currentStreak)) +
           line(QStringLiteral("Best streak"), daysText(report.bestStreak)) + u'\n' + chart(report, display);
}

}
