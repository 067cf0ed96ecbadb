#pragma once

#include <QtCore/QString>

class QProcess;

namespace tomcatto {

/// A program that ships with this one and does in a process of its own what this one is not to carry.
/// @return its path: beside this program as it is built, else where an installation keeps plugins; it may be missing
[[nodiscard]] QString companionProgram(const QString &name);

/// Ends a companion by force. Waits for nobody: it is deleted when it has ended, and quitting waits for two seconds.
void endCompanion(QProcess *process);

}
