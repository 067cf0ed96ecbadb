#include "Timer/TimerArithmetic.h"

#include "Foundation/CheckedArithmetic.h"

namespace tomcatto {

quint64 deadlineAfter(quint64 now, qint64 seconds)
{
    if (seconds >= 0)
        return checkedAdd(now, checkedMultiply(static_cast<quint64>(seconds), nanosecondsPerSecond));
    const quint64 before = checkedMultiply(quint64{0} - static_cast<quint64>(seconds), nanosecondsPerSecond);
    return checkedSubtract(now, before);
}

qint64 signedRemainder(quint64 now, quint64 deadline, bool allowsOverflow) noexcept
{
    if (now < deadline) {
        const quint64 left = deadline - now;
        const quint64 whole = left / nanosecondsPerSecond + (left % nanosecondsPerSecond != 0 ? 1 : 0);
        return static_cast<qint64>(whole);
    }
    return allowsOverflow ? -static_cast<qint64>((now - deadline) / nanosecondsPerSecond) : 0;
}

qint64 activeSeconds(quint64 start, quint64 end, quint64 pausedNanoseconds) noexcept
{
    if (end <= start || end - start <= pausedNanoseconds)
        return 0;
    return static_cast<qint64>((end - start - pausedNanoseconds) / nanosecondsPerSecond);
}

}
