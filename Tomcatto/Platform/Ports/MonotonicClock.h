#pragma once

#include <QtCore/QtGlobal>

namespace tomcatto {

/// A clock that never jumps and keeps counting while the machine sleeps. Every duration of the engine is measured with
/// it.
class MonotonicClock
{
public:
    virtual ~MonotonicClock() = default;

    /// Nanoseconds since an arbitrary start, never less than before. Any thread.
    [[nodiscard]] virtual quint64 nowNanoseconds() const = 0;
};

}
