#include "Alerts/PhaseSoundService.h"

namespace tomcatto {

namespace {

/// The name of the sound between two phases; empty where there is none.
QString soundName(PomodoroPhase previous, PomodoroPhase current)
{
    if (previous == PomodoroPhase::working && isBreak(current))
        return PhaseSoundName::breakStart;
    if (previous != PomodoroPhase::working && current == PomodoroPhase::working)
        return PhaseSoundName::workStart;
    return {};
}

}

PhaseSoundService::PhaseSoundService(const PomodoroSettings &settings, SystemSounds &sounds, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_sounds(sounds)
{
}

void PhaseSoundService::bind(const PomodoroStateMachine &stateMachine, const MannersService &manners)
{
    connect(&stateMachine, &PomodoroStateMachine::transitioned, this, [this, &manners](const auto &transition) {
        // A call would hear it.
        if (!manners.heldBy())
            follow(transition);
    });
    connect(&manners, &MannersService::heldByChanged, this, [this, &stateMachine, &manners] {
        // From now on it waits for the user.
        if (!manners.heldBy() && stateMachine.isPhasePending())
            play(PhaseSoundName::breakStart);
    });
    connect(&manners, &MannersService::heldBreakBegan, this, [this] { play(PhaseSoundName::breakStart); });
    connect(&stateMachine, &PomodoroStateMachine::overflowBegan, this, [this] { play(PhaseSoundName::breakStart); });
}

void PhaseSoundService::follow(const PhaseTransition &transition)
{
    if (transition.reason == PhaseExitReason::reset)
        return;
    if (const QString name = soundName(transition.previous, transition.current); !name.isEmpty())
        play(name);
}

void PhaseSoundService::play(const QString &name)
{
    if (!m_settings.soundEnabled())
        return;
    SystemSound *sound = m_sounds.named(name);
    if (!sound)
        return m_logger.error(QStringLiteral("missing system sound: ") + name);
    if (sound->isPlaying())
        sound->stop();
    sound->rewind();
    sound->play();
}

}
