#include "Platform/Posix/CheckingDayTimer.h"

namespace tomcatto {

namespace {

/// By more than this a clock is not adjusted, but set.
constexpr std::chrono::seconds tolerance{2};

Date wallClock()
{
    return Date(std::chrono::system_clock::now());
}

}

CheckingDayTimer::CheckingDayTimer()
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CheckingDayTimer::look);
}

void CheckingDayTimer::arm(Date instant)
{
    m_instant = instant;
    waitForNextLook();
}

void CheckingDayTimer::look()
{
    const Date now = wallClock();
    const auto expected = m_lastLook + std::chrono::milliseconds(m_sinceLastLook.elapsed());
    if (now >= m_instant || now > expected + tolerance || now < expected - tolerance)
        Q_EMIT fired();
    else
        waitForNextLook();
}

void CheckingDayTimer::waitForNextLook()
{
    m_lastLook = wallClock();
    m_sinceLastLook.start();
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_instant - m_lastLook);
    m_timer.start(std::clamp<std::chrono::milliseconds>(left, std::chrono::milliseconds(0), lookInterval));
}

}
