#pragma once

#include "Control/TimerStatus.h"
#include "Manners/MannersService.h"
#include "Platform/Ports/OncePerTurn.h"
#include "Platform/Ports/WallClock.h"
#include "Statistics/StatsAggregator.h"
#include "StatusPill/StatusPillSource.h"

namespace tomcatto {

/// Gathers the status from the timer, the settings and the statistics, and tells when it changed by more than a tick,
/// while somebody is connected: gathering reads the history. Ticks are told as well on demand. Main thread only.
class StatusSource final : public QObject
{
    Q_OBJECT

public:
    /// What the status is made of.
    struct Parts
    {
        const PomodoroStateMachine &stateMachine;
        const PomodoroTimer &timer;
        const PomodoroSettings &settings;
        const StatsAggregator &statsAggregator;
        const MannersService &manners;
        const LocalizedStrings &strings;
        WallClock &wallClock;
        MainRunLoop &runLoop;
    };

    explicit StatusSource(const Parts &parts, QObject *parent = nullptr);

    /// The status of this moment.
    [[nodiscard]] TimerStatus status() const;
    /// Whether ticks are told, each second while a phase runs. Their receivers are connected to `changed` too.
    void setTicking(bool isTicking);

Q_SIGNALS:
    /// The status changed by more than a tick; once for all changes of one turn of the main loop.
    void changed(const tomcatto::TimerStatus &status);
    /// What it shows changed by a tick alone.
    void ticked(const tomcatto::TimerStatus &status);

protected:
    void connectNotify(const QMetaMethod &signal) override;

private:
    void checkSoon();
    void check();

    Parts m_parts;
    StatusPillSource m_pill;
    /// What was told last; nothing while nobody listens.
    std::optional<TimerStatus> m_last;
    OncePerTurn m_check;
    bool m_isTicking = false;
    Cancellable m_dayObserver;
};

}
