#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/WallClock.h"
#include "Platform/Ports/WidgetCenter.h"
#include "Statistics/StatsAggregator.h"
#include "Timer/PomodoroStateMachine.h"
#include "Widget/WidgetSnapshotFile.h"

namespace tomcatto {

/// Keeps the widget's snapshot file up to date with the timer and the figures of the day. Changes that follow each
/// other are written once, a quarter of a second after the last one, but never later than a second after the first.
/// A snapshot that cannot be written is logged once, until one is written again. Main thread only.
class WidgetBridge final : public QObject
{
    Q_OBJECT

public:
    /// What the widgets of this application are known by.
    static constexpr QLatin1String widgetKind{"TomcattoWidget"};

    /// What surrounds the bridge; everything outlives it.
    struct Surroundings
    {
        WallClock &wallClock;
        MainRunLoop &runLoop;
        WidgetCenter &widgetCenter;
        /// The snapshot file; empty where the container has no place.
        QString snapshotFile;
    };

    WidgetBridge(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, const PomodoroSettings &settings,
                 const StatsAggregator &statsAggregator, const Surroundings &surroundings, QObject *parent = nullptr);

    /// Follows all changes from now on, and writes the first snapshot soon.
    void start();
    /// Writes the snapshot of this moment at once, as the last one of the process.
    void writeFinalSnapshot();
    /// The snapshot of this moment.
    [[nodiscard]] WidgetSnapshot snapshot() const;

private:
    void changed();
    void refresh();
    void countdown(WidgetSnapshot &snapshot, Date now) const;

    const PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const PomodoroSettings &m_settings;
    const StatsAggregator &m_statsAggregator;
    Logger m_logger{QStringLiteral("WidgetBridge")};
    WallClock &m_wallClock;
    MainRunLoop &m_runLoop;
    WidgetCenter &m_widgetCenter;
    WidgetSnapshotFile m_file;
    Cancellable m_dayObserver;
    /// Moves on with each change; the other one stands from the first change to the next write.
    Cancellable m_quietTimer;
    Cancellable m_patienceTimer;
    bool m_hasFailed = false;
    /// The last snapshot that told widgets more than the time.
    std::optional<WidgetSnapshot> m_told;
};

}
