#include "Manners/BreakHold.h"

namespace tomcatto {

using Key = MannersSettings::Key;

BreakHold::BreakHold(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, const MannersSettings &settings,
                     MainRunLoop &runLoop, const Surroundings &surroundings)
    : m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
    , m_runLoop(runLoop)
    , m_surroundings(surroundings)
    , m_call(runLoop, {.linger = callLinger}, [this] { decide(); })
    , m_fullScreen(runLoop, {.linger = fullScreenLinger}, [this] { decide(); })
    , m_typing(runLoop, {.holding = Fact::no}, [this] { decide(); })
{
    m_stateMachine.setBreakQuestion([this] { return mayBegin(); });
    connect(&m_stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &BreakHold::follow);
    connect(&m_stateMachine, &PomodoroStateMachine::isPhasePendingChanged, this, &BreakHold::follow);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &BreakHold::look);
    connect(&m_timer, &PomodoroTimer::remainingSecondsChanged, this, &BreakHold::look);
    connect(&m_settings, &MannersSettings::changed, this, &BreakHold::look);
}

BreakHold::~BreakHold()
{
    m_stateMachine.setBreakQuestion({});
}

bool BreakHold::mayBegin()
{
    m_answered = reason();
    return !m_answered;
}

std::optional<HoldReason> BreakHold::reason() const
{
    if (m_call.holds())
        return HoldReason::call;
    if (m_fullScreen.holds())
        return HoldReason::fullScreen;
    return m_typing.holds() && !m_isTypingOver ? std::optional(HoldReason::typing) : std::nullopt;
}

bool BreakHold::mattersNow() const
{
    if (m_heldBy || m_answered)
        return true;
    return m_stateMachine.currentPhase() == PomodoroPhase::working && !m_stateMachine.isPaused() &&
           m_timer.remainingSeconds() <= lookAheadSeconds && m_stateMachine.startsByItself(PomodoroPhase::shortBreak);
}

void BreakHold::follow()
{
    const bool isReady = m_stateMachine.isPhasePending() && isBreak(m_stateMachine.currentPhase());
    if (const auto answered = std::exchange(m_answered, std::nullopt); answered || !isReady)
        become(isReady ? answered : std::nullopt);
    look();
}

void BreakHold::look()
{
    const bool matters = mattersNow();
    m_call.watch(matters && m_settings.isOn(Key::waitsDuringCalls),
                 [this](auto handler) { return m_surroundings.call.watch(std::move(handler)); });
    m_fullScreen.watch(matters && m_settings.isOn(Key::waitsInFullScreen),
                       [this](auto handler) { return m_surroundings.fullScreen.watch(std::move(handler)); });
    m_typing.watch(matters && m_settings.isOn(Key::finishesSentence),
                   [this](auto handler) { return m_surroundings.idle.watch(typingRest, std::move(handler)); });
}

void BreakHold::decide()
{
    if (!m_heldBy)
        return;
    if (const auto now = reason())
        become(now);
    else
        release();
}

void BreakHold::release()
{
    // Meanwhile the settings may have come to let it wait for the user.
    if (!m_stateMachine.startsByItself(m_stateMachine.currentPhase())) {
        become(std::nullopt);
        look();
    } else if (m_stateMachine.resume()) {
        Q_EMIT breakBegan();
    }
}

void BreakHold::become(std::optional<HoldReason> heldBy)
{
    if (std::exchange(m_heldBy, heldBy) == heldBy)
        return;
    m_typingLimit.cancel();
    m_isTypingOver = false;
    if (heldBy == HoldReason::typing) {
        m_typingLimit = m_runLoop.after(longestTyping, [this] {
            m_isTypingOver = true;
            decide();
        });
    }
    Q_EMIT heldByChanged();
}

}
