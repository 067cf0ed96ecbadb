#pragma once

#include "Platform/Ports/MonotonicClock.h"

#include <ctime>

namespace tomcatto {

/// The clock that every system of the kind has. On some of them it stands still while the machine sleeps: a phase that
/// runs goes on then where it was.
class SteadyClock final : public MonotonicClock
{
public:
    [[nodiscard]] quint64 nowNanoseconds() const override
    {
        constexpr quint64 nanosecondsPerSecond = 1'000'000'000;
        timespec now{};
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        return static_cast<quint64>(now.tv_sec) * nanosecondsPerSecond + static_cast<quint64>(now.tv_nsec);
    }
};

}
