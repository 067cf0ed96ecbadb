#include "Power/SleepWakeObserver.h"

#include <utility>

namespace tomcatto {

SleepWakeObserver::SleepWakeObserver(WorkspacePower &notificationCenter, const MonotonicClock &clock, QObject *parent)
    : QObject(parent)
    , m_notificationCenter(notificationCenter)
    , m_clock(clock)
{
    m_sleepObserver = m_notificationCenter.onWillSleep([this] {
        m_sleepAtNanoseconds = m_clock.nowNanoseconds();
        Q_EMIT willSleep();
    });
    m_wakeObserver = m_notificationCenter.onDidWake([this] {
        const auto sleptAt = std::exchange(m_sleepAtNanoseconds, std::nullopt);
        if (sleptAt)
            Q_EMIT didWake(static_cast<double>(m_clock.nowNanoseconds() - *sleptAt) / 1e9);
    });
}

}
