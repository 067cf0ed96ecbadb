#pragma once

#include "BreakOverlay/BreakContentModel.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// What the overlay reads and drives. Everything outlives the holder of this.
struct BreakOverlayServices
{
    PomodoroStateMachine &stateMachine;
    const PomodoroTimer &timer;
    const PomodoroSettings &settings;
    const LocalizedStrings &strings;
};

/// The running or waiting break of the state machine, for one overlay window. Every control is an operation of the
/// state machine. Main thread only.
class BreakOverlayModel final : public BreakContentModel
{
    Q_OBJECT

public:
    /// @param isMuted how the window starts where the settings allow sounds; without them it always starts muted
    BreakOverlayModel(const BreakOverlayServices &services, BreakVideoSource videos, bool isMuted,
                      QObject *parent = nullptr);

    void start() override;
    void extend() override;

private:
    void refresh();
    [[nodiscard]] QString text(const char *part) const;

    BreakOverlayServices m_services;
};

}
