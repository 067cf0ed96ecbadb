#pragma once

#include "StatisticsViews/SessionLogViewModel.h"
#include "StatisticsViews/StatisticsViewModel.h"

namespace tomcatto {

/// The statistics page: the figures of the chosen range over the log of its phases. Main thread only.
class StatisticsPageViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(tomcatto::StatisticsViewModel *statistics READ statistics CONSTANT FINAL)
    Q_PROPERTY(tomcatto::SessionLogViewModel *log READ log CONSTANT FINAL)

public:
    /// Everything outlives the view model.
    StatisticsPageViewModel(const StatisticsSources &sources, HistoryEditor &editor, MainRunLoop &runLoop,
                            QObject *parent = nullptr);

    /// The range that is chosen, and all that stands over the log.
    [[nodiscard]] StatisticsViewModel *statistics() noexcept { return &m_statistics; }

    /// The phases of that range.
    [[nodiscard]] SessionLogViewModel *log() noexcept { return &m_log; }

    /// A page came into view, or went out of it. While none is there, nothing is kept and nothing followed.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void disappear();

private:
    StatisticsViewModel m_statistics;
    SessionLogViewModel m_log;
    /// A window that closes may outlast the opening of the next one.
    int m_pages = 0;
};

}
