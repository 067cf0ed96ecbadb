#pragma once

#include "Foundation/Date.h"

#include <memory>
#include <QtCore/QObject>

class QSocketNotifier;

namespace tomcatto {

/// One timer for a wall-clock instant. It is right after sleep, and tells when the clock was set. Nothing wakes the
/// process in between. Used on one thread with an event loop.
class DayTimer final : public QObject
{
    Q_OBJECT

public:
    /// A timer that is not armed.
    DayTimer();
    ~DayTimer() override;

    /// Fires once at `instant`, at once when that has passed; replaces what was armed before.
    void arm(Date instant);

Q_SIGNALS:
    /// The instant came, or the clock was set. The timer must be armed anew.
    void fired();

private:
    void readExpiry();

    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}
