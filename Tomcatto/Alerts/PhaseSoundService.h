#pragma once

#include "Foundation/Logger.h"
#include "Manners/MannersService.h"
#include "Platform/Ports/SystemSounds.h"

namespace tomcatto {

/// The system's sounds that are used, by name.
namespace PhaseSoundName {
inline constexpr QLatin1String breakStart{"Glass"};
inline constexpr QLatin1String workStart{"Pop"};
}

/// Plays a short sound when a phase changes and when a focus phase runs past its plan, unless sounds are off. That of a
/// break that is held back comes when it begins by itself. Main thread only.
class PhaseSoundService final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the service.
    PhaseSoundService(const PomodoroSettings &settings, SystemSounds &sounds, QObject *parent = nullptr);

    /// Follows the state machine from now on; called once. Both outlive the service.
    void bind(const PomodoroStateMachine &stateMachine, const MannersService &manners);

private:
    void follow(const PhaseTransition &transition);
    void play(const QString &name);

    const PomodoroSettings &m_settings;
    Logger m_logger{QStringLiteral("PhaseSoundService")};
    SystemSounds &m_sounds;
};

}
