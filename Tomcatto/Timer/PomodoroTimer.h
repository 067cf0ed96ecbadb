#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/MonotonicClock.h"

#include <optional>
#include <QtCore/QObject>

namespace tomcatto {

/// Counts one phase down against the monotonic clock, ticking once a second, and on past zero where the phase may
/// overflow. Deadlines are stored, never counters, so a late tick shows the right time. Driven by the state machine
/// alone. Main thread only.
class PomodoroTimer final : public QObject
{
    Q_OBJECT

public:
    PomodoroTimer(const MonotonicClock &clock, MainRunLoop &runLoop, QObject *parent = nullptr);

    /// Seconds left of the phase, rounded up; never below 0.
    [[nodiscard]] qint64 remainingSeconds() const noexcept { return m_remainingSeconds; }
    /// Seconds past the planned end, rounded down; never below 0.
    [[nodiscard]] qint64 overflowSeconds() const noexcept { return m_overflowSeconds; }
    /// Whether a deadline stands: neither paused nor stopped, and not expired unless it may overflow.
    [[nodiscard]] bool isRunning() const noexcept { return m_deadlineNanoseconds.has_value(); }
    /// The reading of the monotonic clock, in nanoseconds, that the standing deadline was first counted from: the last
    /// start or resume. Absent without a deadline.
    [[nodiscard]] std::optional<quint64> runningSinceNanoseconds() const noexcept
    {
        return m_deadlineNanoseconds ? std::optional(m_runningSinceNanoseconds) : std::nullopt;
    }
    /// Whether the phase may count on past zero.
    [[nodiscard]] bool allowsOverflow() const noexcept { return m_allowsOverflow; }
    /// Whether `resume` would start the clock again.
    [[nodiscard]] bool canResume() const noexcept;
    /// Whether `extend` would change anything.
    [[nodiscard]] bool canExtend() const noexcept;

    /// Starts a phase. @param plannedSeconds whole seconds; below 1 the phase expires at once and never ticks.
    void start(qint64 plannedSeconds, bool allowsOverflow);
    /// Freezes the remainder, negative in overflow. Only while a deadline stands.
    void pause();
    /// Goes on from the frozen remainder. Only where `canResume`.
    void resume();
    /// Drops deadline and ticking.
    void stop();
    /// Lengthens the phase; overflow already run is dropped. Only where `canExtend`; below 1 second nothing happens.
    void extend(qint64 seconds);
    /// Publishes the values of this moment without waiting for the tick.
    void refresh();

Q_SIGNALS:
    void remainingSecondsChanged(qint64 seconds);
    void overflowSecondsChanged(qint64 seconds);
    /// The phase reached zero; once for each phase, and once more after an extension.
    void expired();

private:
    [[nodiscard]] qint64 currentRemainder() const noexcept;
    void run(qint64 remainder);
    void publish(qint64 remainder);
    void tick();

    qint64 m_remainingSeconds = 0;
    qint64 m_overflowSeconds = 0;
    const MonotonicClock &m_clock;
    MainRunLoop &m_runLoop;
    Cancellable m_tickCancellable;
    std::optional<quint64> m_deadlineNanoseconds;
    // By which a tick notices that a receiver acted on it.
    quint64 m_operations = 0;
    quint64 m_runningSinceNanoseconds = 0;
    std::optional<qint64> m_pausedRemainingSeconds;
    bool m_allowsOverflow = false;
    bool m_hasExpired = false;
};

}
