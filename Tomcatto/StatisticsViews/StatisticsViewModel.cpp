#include "StatisticsViews/StatisticsViewModel.h"

#include "StatisticsViews/FigureRows.h"
#include "StatisticsViews/SessionExport.h"

namespace tomcatto {

StatisticsViewModel::StatisticsViewModel(const StatisticsSources &sources, StatisticsForm form, QObject *parent)
    : QObject(parent)
    , m_sources(sources)
    , m_form(form)
{
    connect(&sources.aggregator, &StatsAggregator::changes, this, &StatisticsViewModel::rebuild);
    connect(&sources.strings, &LocalizedStrings::changed, this, &StatisticsViewModel::retranslate);
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
        return retranslate();
    m_figures = {};
    m_chart = {};
    m_heat = {};
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

void StatisticsViewModel::exportSessions()
{
    m_sources.sessionExport.run(range());
}

void StatisticsViewModel::retranslate()
{
    if (!m_isShown)
        return;
    m_rangeTexts.clear();
    for (const StatsRange each : allStatsRanges)
        m_rangeTexts.append(m_sources.strings.text(QStringLiteral("stats.range.") + rawValue(each)));
    Q_EMIT rangeTextsChanged();
    rebuild();
}

void StatisticsViewModel::rebuild()
{
    if (!m_isShown)
        return;
    m_hasHistory = m_sources.aggregator.earliestSessionDate().has_value();
    m_figures = figureRows(m_sources, range(), m_form);
    m_chart = focusChart(m_sources, range(), m_form);
    m_heat = heatRows(m_sources, m_form);
    Q_EMIT changed();
}

QString StatisticsViewModel::emptyText(const QString &part) const
{
    return m_sources.strings.text(
        (m_hasHistory ? QStringLiteral("stats.empty_range.") : QStringLiteral("stats.empty.")) + part);
}

}
