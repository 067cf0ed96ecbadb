#include "Platform/Linux/TimerfdDayTimer.h"

#include "Foundation/Logger.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <QtCore/QSocketNotifier>
#include <sys/timerfd.h>
#include <unistd.h>

namespace tomcatto {

TimerfdDayTimer::TimerfdDayTimer()
    : m_descriptor(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
{
    if (m_descriptor < 0) {
        Logger(QStringLiteral("TimerfdDayTimer"))
            .error(QStringLiteral("day changes go unnoticed: ") + QString::fromLocal8Bit(std::strerror(errno)));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &TimerfdDayTimer::readExpiry);
}

TimerfdDayTimer::~TimerfdDayTimer()
{
    m_notifier.reset();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void TimerfdDayTimer::arm(Date instant)
{
    if (m_descriptor < 0)
        return;
    // All zero would disarm, so the first instant is one second after the epoch.
    const double seconds = std::max(1.0, secondsSince1970(instant));
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(std::floor(seconds));
    when.it_value.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    ::timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

void TimerfdDayTimer::readExpiry()
{
    quint64 expirations = 0;
    const auto size = ::read(m_descriptor, &expirations, sizeof expirations);
    // A clock that was set cancels the timer; a wake-up without either is none.
    if (size < 0 && errno != ECANCELED)
        return;
    Q_EMIT fired();
}

}
