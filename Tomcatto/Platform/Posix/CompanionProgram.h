#pragma once

#include "Platform/Ports/LocalConnection.h"

#include <memory>
#include <QtCore/QString>

class QProcess;
class QProcessEnvironment;

namespace tomcatto {

/// A program that ships with this one and does in a process of its own what this one is not to carry.
/// @return its path: beside this program as it is built, else where an installation keeps plugins; it may be missing
[[nodiscard]] QString companionProgram(const QString &name);

/// Where desktops on Wayland leave the token for a program's next window.
inline constexpr const char *activationTokenVariable = "XDG_ACTIVATION_TOKEN";

/// For companions that show windows of this program.
[[nodiscard]] QProcessEnvironment environmentOfWindows();

/// Starts a companion with a connection to this process, whose descriptor is its one argument. Where it does not start,
/// the process tells so. @return this end; null where the system has no sockets left
[[nodiscard]] std::unique_ptr<LocalConnection> startConnected(QProcess &process, const QString &program);

/// The companion's end. @param descriptor as it was given
[[nodiscard]] std::unique_ptr<LocalConnection> companionsConnection(int descriptor);

/// Ends a companion by force. Waits for nobody: it is deleted when it has ended, and quitting waits for two seconds.
void endCompanion(QProcess *process);

}
