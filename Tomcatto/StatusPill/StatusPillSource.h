#pragma once

#include "Localization/LocalizedStrings.h"
#include "StatusPill/StatusPillContent.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// Seconds as minutes and seconds of two digits each; minutes are not wrapped into hours, negative values count as 0.
[[nodiscard]] QString clockText(qint64 seconds);

/// The pill's tone for a phase; overtime whenever it overflows.
[[nodiscard]] StatusPillTone statusPillTone(PomodoroPhase phase, bool isOverflowing) noexcept;

/// Makes the pill's content from the timer's state at the time of the call. Main thread only.
class StatusPillSource final
{
public:
    StatusPillSource(const PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                     const PomodoroSettings &settings, const LocalizedStrings &strings);

    /// @param isDarkBar whether the place that shows the pill is dark.
    [[nodiscard]] StatusPillContent content(bool isDarkBar = false) const;

private:
    [[nodiscard]] QString title(bool breakReady) const;
    [[nodiscard]] double progress() const;

    const PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const PomodoroSettings &m_settings;
    const LocalizedStrings &m_strings;
};

}
