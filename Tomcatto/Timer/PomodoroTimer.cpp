#include "Timer/PomodoroTimer.h"

#include "Foundation/CheckedArithmetic.h"
#include "Timer/TimerArithmetic.h"

namespace tomcatto {

PomodoroTimer::PomodoroTimer(const MonotonicClock &clock, MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_runLoop(runLoop)
{
}

bool PomodoroTimer::canResume() const noexcept
{
    return !m_deadlineNanoseconds && m_pausedRemainingSeconds && (*m_pausedRemainingSeconds >= 1 || m_allowsOverflow);
}

bool PomodoroTimer::canExtend() const noexcept
{
    return m_deadlineNanoseconds || canResume();
}

void PomodoroTimer::start(qint64 plannedSeconds, bool allowsOverflow)
{
    const qint64 planned = std::max<qint64>(plannedSeconds, 0);
    ++m_operations;
    m_tickCancellable.cancel();
    m_deadlineNanoseconds.reset();
    m_pausedRemainingSeconds.reset();
    m_hasExpired = planned < 1;
    m_allowsOverflow = allowsOverflow;
    if (planned >= 1)
        run(planned);
    publish(planned);
    if (planned < 1)
        Q_EMIT expired();
}

void PomodoroTimer::pause()
{
    if (!m_deadlineNanoseconds)
        return;
    ++m_operations;
    const qint64 remainder = currentRemainder();
    m_deadlineNanoseconds.reset();
    m_tickCancellable.cancel();
    m_pausedRemainingSeconds = remainder;
    publish(remainder);
}

void PomodoroTimer::resume()
{
    if (!canResume())
        return;
    ++m_operations;
    const qint64 remainder = std::exchange(m_pausedRemainingSeconds, std::nullopt).value_or(0);
    run(remainder);
    publish(remainder);
}

void PomodoroTimer::stop()
{
    ++m_operations;
    m_deadlineNanoseconds.reset();
    m_pausedRemainingSeconds.reset();
    m_tickCancellable.cancel();
}

void PomodoroTimer::extend(qint64 seconds)
{
    if (seconds <= 0 || !canExtend())
        return;
    ++m_operations;
    const qint64 remainder = checkedAdd(std::max<qint64>(currentRemainder(), 0), seconds);
    m_hasExpired = false;
    if (m_deadlineNanoseconds)
        m_deadlineNanoseconds = deadlineAfter(m_clock.nowNanoseconds(), remainder);
    else
        m_pausedRemainingSeconds = remainder;
    publish(remainder);
}

void PomodoroTimer::refresh()
{
    if (m_deadlineNanoseconds)
        publish(currentRemainder());
}

qint64 PomodoroTimer::currentRemainder() const noexcept
{
    if (!m_deadlineNanoseconds)
        return m_pausedRemainingSeconds.value_or(0);
    return signedRemainder(m_clock.nowNanoseconds(), *m_deadlineNanoseconds, m_allowsOverflow);
}

void PomodoroTimer::run(qint64 remainder)
{
    m_runningSinceNanoseconds = m_clock.nowNanoseconds();
    m_deadlineNanoseconds = deadlineAfter(m_runningSinceNanoseconds, remainder);
    m_tickCancellable = m_runLoop.every(std::chrono::seconds{1}, [this] { tick(); });
}

void PomodoroTimer::publish(qint64 remainder)
{
    const qint64 remaining = std::max<qint64>(remainder, 0);
    const qint64 overflow = m_allowsOverflow ? std::max<qint64>(-remainder, 0) : 0;
    const bool remainingDiffers = remaining != m_remainingSeconds;
    const bool overflowDiffers = overflow != m_overflowSeconds;
    m_remainingSeconds = remaining;
    m_overflowSeconds = overflow;
    if (remainingDiffers)
        Q_EMIT remainingSecondsChanged(remaining);
    // Those who heard of the one may have acted, and the other is announced already.
    if (overflowDiffers && overflow == m_overflowSeconds)
        Q_EMIT overflowSecondsChanged(overflow);
}

void PomodoroTimer::tick()
{
    const qint64 remainder = currentRemainder();
    const quint64 operations = m_operations;
    publish(remainder);
    // A handler may have ended, paused or extended the phase; what is there now has not expired.
    if (remainder >= 1 || m_hasExpired || operations != m_operations)
        return;
    if (!m_allowsOverflow) {
        m_deadlineNanoseconds.reset();
        m_tickCancellable.cancel();
    }
    m_hasExpired = true;
    Q_EMIT expired();
}

}
