#pragma once

#include "Platform/Posix/DayTimer.h"

#include <memory>

class QSocketNotifier;

namespace tomcatto {

/// The kernel's timer. It is right after sleep, and tells when the clock was set. Nothing wakes the process in between.
class TimerfdDayTimer final : public DayTimer
{
    Q_OBJECT

public:
    /// A timer that is not armed.
    TimerfdDayTimer();
    ~TimerfdDayTimer() override;

    void arm(Date instant) override;

private:
    void readExpiry();

    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}
