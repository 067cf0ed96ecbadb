#pragma once

#include "Platform/Ports/MonotonicClock.h"

#include <ctime>

namespace tomcatto {

/// The kernel's clock since boot, which counts through sleep.
class BootTimeClock final : public MonotonicClock
{
public:
    [[nodiscard]] quint64 nowNanoseconds() const override
    {
        constexpr quint64 nanosecondsPerSecond = 1'000'000'000;
        timespec now{};
        ::clock_gettime(CLOCK_BOOTTIME, &now);
        return static_cast<quint64>(now.tv_sec) * nanosecondsPerSecond + static_cast<quint64>(now.tv_nsec);
    }
};

}
