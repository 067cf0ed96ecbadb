#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Exit status of a process whose store cannot be set up.
inline constexpr int storeFailureStatus = 4;

/// What the surroundings need put right before the process ends by one of the functions below, such as a terminal's
/// settings. May run on any thread, must not wait.
using FatalErrorHook = void (*)();

/// Sets the one hook of the process, in the place of an earlier one; null for none. Any thread.
void setFatalErrorHook(FatalErrorHook hook);

/// Ends the process for a broken promise of the program itself, such as arithmetic that overflows: logs `message` at
/// fault level, writes it to standard error and aborts. Nothing is unwound. Any thread.
[[noreturn]] void fatalError(const QString &message);

/// Ends the process with `exitStatus` for a failure of its surroundings that it cannot work without, such as a store
/// that does not open. Says so like `fatalError`, leaves no core. Any thread.
[[noreturn]] void stopProcess(const QString &message, int exitStatus);

}
