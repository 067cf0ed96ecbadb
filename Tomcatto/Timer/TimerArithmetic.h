#pragma once

#include <QtCore/QtGlobal>

namespace tomcatto {

/// Nanoseconds in a second. Monotonic instants are nanoseconds, everything shown or stored is whole seconds.
inline constexpr quint64 nanosecondsPerSecond = 1'000'000'000;

/// The instant `seconds` after `now`; negative seconds lie before it. What no instant can hold is fatal.
[[nodiscard]] quint64 deadlineAfter(quint64 now, qint64 seconds);

/// Seconds left until `deadline`, rounded up, so that the last second shows until it has fully passed. At or past the
/// deadline: with overflow, minus the seconds since, rounded down; else 0.
[[nodiscard]] qint64 signedRemainder(quint64 now, quint64 deadline, bool allowsOverflow) noexcept;

/// Whole seconds between two instants less the paused nanoseconds, rounded down; 0 where that is not positive.
[[nodiscard]] qint64 activeSeconds(quint64 start, quint64 end, quint64 pausedNanoseconds) noexcept;

}
