#pragma once

#include "Foundation/Date.h"
#include "Manners/LingeringFact.h"
#include "Manners/MannersSettings.h"
#include "Platform/Ports/WallClock.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// Pauses a focus phase that nobody sits at. It never goes on by itself. Main thread only.
class AwayPause final : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives this.
    AwayPause(PomodoroStateMachine &stateMachine, const MannersSettings &settings, WallClock &wallClock,
              MainRunLoop &runLoop, const Surroundings &surroundings);

    /// Since when the person was away, from their return until the paused phase goes on or ends.
    [[nodiscard]] std::optional<Date> awaySince() const { return m_isBack ? m_goneSince : std::nullopt; }
    /// Whether the phase is paused because nobody sat at it.
    [[nodiscard]] bool hasPaused() const noexcept { return m_goneSince.has_value(); }

    /// The machine sleeps, which pauses the phase as well: called before it does. A screen that is locked on the way
    /// takes the pause over.
    void prepareForSleep();
    /// The machine is awake, and what became of the phase is decided.
    void wakeUp();

Q_SIGNALS:
    void awaySinceChanged();

private:
    [[nodiscard]] bool isFocusing() const;
    [[nodiscard]] bool mattersNow() const;
    [[nodiscard]] bool isGone() const;
    [[nodiscard]] std::chrono::minutes rest() const;
    void follow();
    void look();
    void decide();
    void leave();

    PomodoroStateMachine &m_stateMachine;
    const MannersSettings &m_settings;
    WallClock &m_wallClock;
    MainRunLoop &m_runLoop;
    Surroundings m_surroundings;
    LingeringFact m_idle;
    LingeringFact m_lock;
    Cancellable m_nextLook;
    // While it is set the pause is ours.
    std::optional<Date> m_goneSince;
    // Since when the phase runs because somebody wanted it to.
    std::optional<Date> m_wantedSince;
    bool m_isBack = false;
    bool m_isAsleep = false;
};

}
