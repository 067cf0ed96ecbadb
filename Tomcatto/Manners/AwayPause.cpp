#include "Manners/AwayPause.h"

namespace tomcatto {

using Key = MannersSettings::Key;

AwayPause::AwayPause(PomodoroStateMachine &stateMachine, const MannersSettings &settings, WallClock &wallClock,
                     MainRunLoop &runLoop, const Surroundings &surroundings)
    : m_stateMachine(stateMachine)
    , m_settings(settings)
    , m_wallClock(wallClock)
    , m_surroundings(surroundings)
    , m_idle(runLoop, {}, [this] { decide(); })
    , m_lock(runLoop, {}, [this] { decide(); })
{
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &AwayPause::follow);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &AwayPause::follow);
    connect(&m_settings, &MannersSettings::changed, this, [this](Key key) {
        // The present look is for another length of rest.
        if (key == Key::awayAfterMinutes)
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
    if (!isFocusing() || !m_stateMachine.isPaused()) {
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
    const std::chrono::minutes rest(m_settings.value(Key::awayAfterMinutes));
    m_idle.watch(matters && rest.count() > 0,
                 [this, rest](auto handler) { return m_surroundings.idle.watch(rest, std::move(handler)); });
    m_lock.watch(matters, [this](auto handler) { return m_surroundings.lock.watch(std::move(handler)); });
}

void AwayPause::decide()
{
    const bool isGone = m_lock.holds() || m_idle.holds();
    if (isGone && !hasPaused() && mattersNow())
        return leave();
    if (isGone || !hasPaused() || m_isBack)
        return;
    m_isBack = true;
    look();
    Q_EMIT awaySinceChanged();
}

void AwayPause::leave()
{
    // The rest began before it was long enough.
    const std::chrono::minutes rested(m_lock.holds() ? 0 : m_settings.value(Key::awayAfterMinutes));
    m_goneSince = m_wallClock.now() - rested;
    m_stateMachine.pause();
}

}
