#include "MainWindow/StatisticsPageViewModel.h"

namespace tomcatto {

StatisticsPageViewModel::StatisticsPageViewModel(const StatisticsSources &sources, HistoryEditor &editor,
                                                 MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_statistics(sources, StatisticsForm::page)
    , m_log(m_statistics, editor, sources.settings, {sources.aggregator, sources.strings, sources.wallClock, runLoop})
{
}

void StatisticsPageViewModel::appear()
{
    ++m_pages;
    m_statistics.setShown(true);
    m_log.appear();
}

void StatisticsPageViewModel::disappear()
{
    if (--m_pages > 0)
        return;
    m_statistics.setShown(false);
    m_log.disappear();
}

}
