#pragma once

#include "Platform/Ports/MonotonicClock.h"
#include "Platform/Ports/WorkspacePower.h"

#include <optional>
#include <QtCore/QObject>

namespace tomcatto {

/// Turns the system's sleep and wake into events, with the length of the sleep. Main thread only.
class SleepWakeObserver final : public QObject
{
    Q_OBJECT

public:
    SleepWakeObserver(WorkspacePower &notificationCenter, const MonotonicClock &clock, QObject *parent = nullptr);

    /// Asks the system to wait with sleeping until `willSleep` has been handled.
    void setSleepDelayed(bool isDelayed) { m_notificationCenter.setSleepDelayed(isDelayed); }

Q_SIGNALS:
    void willSleep();
    /// @param sleepSeconds how long the machine slept. A wake without a sleep before it is not announced.
    void didWake(double sleepSeconds);

private:
    WorkspacePower &m_notificationCenter;
    const MonotonicClock &m_clock;
    std::optional<quint64> m_sleepAtNanoseconds;
    Cancellable m_sleepObserver;
    Cancellable m_wakeObserver;
};

}
