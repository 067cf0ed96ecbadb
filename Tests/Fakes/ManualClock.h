#pragma once

#include "Platform/Ports/MonotonicClock.h"

#include <chrono>

namespace tomcatto {

/// A monotonic clock that a test moves by hand.
class ManualClock final : public MonotonicClock
{
public:
    [[nodiscard]] quint64 nowNanoseconds() const override { return m_now; }
    void advance(std::chrono::nanoseconds span) { m_now += static_cast<quint64>(span.count()); }

private:
    quint64 m_now = 1'000'000'000'000;
};

}
