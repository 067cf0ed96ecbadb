#pragma once

#include "Manners/MannersSettings.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// Says once for each focus phase that its planned end is near. Lives on the timer's ticks. Main thread only.
class WordBefore final : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives this.
    WordBefore(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, const MannersSettings &settings);

    /// From then on until the phase ends, is extended, paused or runs over its plan.
    [[nodiscard]] bool isBreakNear() const noexcept { return m_isBreakNear; }

Q_SIGNALS:
    void isBreakNearChanged();

private:
    void update();
    [[nodiscard]] bool isNear() const;

    const PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const MannersSettings &m_settings;
    // The phase that it was said for.
    QString m_saidFor;
    bool m_isBreakNear = false;
};

}
