#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Exit status of a process whose store cannot be set up.
inline constexpr int storeFailureStatus = 4;

/// Ends the process for a broken promise of the program itself, such as arithmetic that overflows: logs `message` at
/// fault level, writes it to standard error and aborts. Nothing is unwound. Any thread.
[[noreturn]] void fatalError(const QString &message);

/// Ends the process with `exitStatus` for a failure of its surroundings that it cannot work without, such as a store
/// that does not open. Says so like `fatalError`, leaves no core. Any thread.
[[noreturn]] void stopProcess(const QString &message, int exitStatus);

}
