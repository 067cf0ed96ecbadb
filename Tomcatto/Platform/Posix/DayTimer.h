#pragma once

#include "Foundation/Date.h"

#include <QtCore/QObject>

namespace tomcatto {

/// One timer for a wall-clock instant. Used on one thread with an event loop.
class DayTimer : public QObject
{
    Q_OBJECT

public:
    /// Fires once at `instant`, at once when that has passed; replaces what was armed before.
    virtual void arm(Date instant) = 0;

Q_SIGNALS:
    /// The instant came, or the clock or the time zone was set. The timer must be armed anew.
    void fired();
};

}
