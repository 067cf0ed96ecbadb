#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// What became of an attempt to take the instance lock.
enum class InstanceLockResult {
    taken,
    /// Another process holds it.
    held,
    /// The lock's place cannot be written; this process goes on without it.
    unavailable,
};

/// The lock that lets one process at a time run the application or write its settings. The system releases it when the
/// process ends, however it ends. Main thread only.
class InstanceLock
{
public:
    virtual ~InstanceLock() = default;

    /// Takes the lock without waiting.
    [[nodiscard]] virtual InstanceLockResult tryTake() = 0;
    /// Gives it back, and takes back what was announced.
    virtual void release() = 0;

    /// Lets this user's other processes know where the holder can be reached. Does nothing while the lock is not held.
    virtual void announce(const QString &address) = 0;
    /// What the holder announced last. It may be out of date where a holder was killed; empty where there is nothing.
    [[nodiscard]] virtual QString announced() const = 0;
};

}
