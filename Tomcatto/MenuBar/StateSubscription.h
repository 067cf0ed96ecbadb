#pragma once

#include "MenuBar/MenuBarServices.h"

namespace tomcatto {

/// Merges everything that the state machine, the timer and the settings publish, and the change of language, into one
/// call of `changed` in a later turn of the main loop, however many changes came before it. Main thread only.
/// @return ends the subscription when it is destroyed, a call that waits included.
[[nodiscard]] Cancellable subscribeToState(const MenuBarServices &services, std::function<void()> changed);

}
