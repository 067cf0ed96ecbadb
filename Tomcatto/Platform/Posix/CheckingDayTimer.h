#pragma once

#include "Platform/Posix/DayTimer.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace tomcatto {

/// A timer of the toolkit's, which counts time that passes and knows nothing of clocks: it looks at the clock now and
/// then, and so notices some minutes late that the clock was set or the machine slept.
class CheckingDayTimer final : public DayTimer
{
    Q_OBJECT

public:
    /// How long it goes without looking.
    static constexpr std::chrono::minutes lookInterval{10};

    /// A timer that is not armed.
    CheckingDayTimer();

    void arm(Date instant) override;

private:
    void look();
    void waitForNextLook();

    Date m_instant;
    Date m_lastLook;
    QElapsedTimer m_sinceLastLook;
    QTimer m_timer;
};

}
