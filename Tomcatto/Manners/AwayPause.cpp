#include "Manners/AwayPause.h"

namespace tomcatto {

namespace {

using Key = MannersSettings::Key;

/// A touch and the start that it asks for are not one moment.
constexpr std::chrono::seconds touchTolerance{10};

}

AwayPause::AwayPause(PomodoroStateMachine &stateMachine, const MannersSettings &settings, WallClock &wallClock,
                     MainRunLoop &runLoop, const Surroundings &surroundings)
    : m_stateMachine(stateMachine)
    , m_settings(settings)
    , m_wallClock(wallClock)
    , m_runLoop(runLoop)
    , m_surroundings(surroundings)
    , m_idle(runLoop, {}, [this] { decide(); })
    , m_lock(runLoop, {}, [this] { decide(); })
{
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &AwayPause::follow);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &AwayPause::follow);
    connect(&m_stateMachine, &PomodoroStateMachine::transitioned, this, [this](const PhaseTransition &transition) {
        if (transition.reason == PhaseExitReason::completed)
            m_wantedSince.reset();
    });
    connect(&m_settings, &MannersSettings::changed, this, [this](Key key) {
        // The present look is for another length of rest; one for a return is not.
        if (key == Key::awayAfterMinutes && !hasPaused())
            m_idle.watch(false, {});
        look();
    });
}

void AwayPause::prepareForSleep()
{
    m_isAsleep = isFocusing() && !m_stateMachine.isPaused();
}

void AwayPause::wakeUp()
{
    m_isAsleep = false;
    look();
}

bool AwayPause::isFocusing() const
{
    return m_stateMachine.currentPhase() == PomodoroPhase::working;
}

bool AwayPause::mattersNow() const
{
    if (!isFocusing() || !m_settings.isOn(Key::pausesWhenAway))
        return false;
    return hasPaused() ? !m_isBack : !m_stateMachine.isPaused() || m_isAsleep;
}

void AwayPause::follow()
{
    const bool runs = isFocusing() && !m_stateMachine.isPaused();
    m_wantedSince = runs ? std::optional(m_wantedSince.value_or(m_wallClock.now())) : std::nullopt;
    if (!isFocusing() || runs) {
        m_isAsleep = false;
        const bool wasBack = std::exchange(m_isBack, false);
        m_goneSince.reset();
        if (wasBack)
            Q_EMIT awaySinceChanged();
    }
    look();
}

void AwayPause::look()
{
    const bool matters = mattersNow();
    m_idle.watch(matters && rest().count() > 0,
                 [this](auto handler) { return m_surroundings.idle.watch(rest(), std::move(handler)); });
    m_lock.watch(matters, [this](auto handler) { return m_surroundings.lock.watch(std::move(handler)); });
    // Of a rest that did not count yet there is no more news, if nobody comes.
    const bool mayStayUntouched = matters && m_wantedSince && rest().count() > 0;
    m_nextLook = mayStayUntouched ? m_runLoop.after(rest(), [this] { decide(); }) : Cancellable();
}

std::chrono::minutes AwayPause::rest() const
{
    return std::chrono::minutes(m_settings.value(Key::awayAfterMinutes));
}

bool AwayPause::isGone() const
{
    // Who wants a phase to run is there, even where the wish came from another machine or a script.
    const Seconds wanted = m_wantedSince ? m_wallClock.now() - *m_wantedSince : Seconds(rest());
    // Below 0 where the clock was set back.
    const bool isUntouched = wanted < Seconds(0) || wanted + touchTolerance >= rest();
    return m_lock.holds() || (m_idle.holds() && isUntouched);
}

void AwayPause::decide()
{
    if (isGone() && !hasPaused() && mattersNow())
        return leave();
    if (isGone() || !hasPaused() || m_isBack)
        return;
    m_isBack = true;
    look();
    Q_EMIT awaySinceChanged();
}

void AwayPause::leave()
{
    // The rest began before it was long enough.
    m_goneSince = m_wallClock.now() - (m_lock.holds() ? std::chrono::minutes(0) : rest());
    m_stateMachine.pause();
}

}
