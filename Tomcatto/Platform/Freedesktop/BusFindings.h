#pragma once

#include "Platform/Ports/Finding.h"

class QDBusConnection;

namespace tomcatto {

/// Looks at the buses of the session and the system, and at what the application asks there. A bus or a service that
/// does not answer costs some seconds. Starts nothing. Called before anything else asks for a bus.
[[nodiscard]] Findings findOnBuses();

/// Whether a tray on the session bus takes icons. Waits for the answer, two seconds at most.
[[nodiscard]] bool hasTrayHost(const QDBusConnection &sessionBus);

}
