#include "MainWindow/StatisticsPageViewModel.h"

namespace tomcatto {

StatisticsPageViewModel::StatisticsPageViewModel(const StatisticsSources &sources, QObject *parent)
    : QObject(parent)
    , m_statistics(sources, StatisticsForm::page)
{
}

void StatisticsPageViewModel::appear()
{
    ++m_pages;
    m_statistics.setShown(true);
}

void StatisticsPageViewModel::disappear()
{
    if (--m_pages == 0)
        m_statistics.setShown(false);
}

}
