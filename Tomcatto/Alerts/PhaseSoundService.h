#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/SystemSounds.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// The system's sounds that are used, by name.
namespace PhaseSoundName {
inline constexpr QLatin1String breakStart{"Glass"};
inline constexpr QLatin1String workStart{"Pop"};
}

/// Plays a short sound when a phase changes and when a focus phase runs past its plan, unless sounds are off. Main
/// thread only.
class PhaseSoundService final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the service.
    PhaseSoundService(const PomodoroSettings &settings, SystemSounds &sounds, QObject *parent = nullptr);

    /// Follows the state machine from now on; called once.
    void bind(const PomodoroStateMachine &stateMachine);

private:
    void follow(const PhaseTransition &transition);
    void play(const QString &name);

    const PomodoroSettings &m_settings;
    Logger m_logger{QStringLiteral("PhaseSoundService")};
    SystemSounds &m_sounds;
};

}
