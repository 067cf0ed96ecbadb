#pragma once

#include "Composition/AppDependencies.h"

namespace tomcatto {

/// Merges everything that the state machine, the timer and the settings publish, and the change of language, into one
/// call of `changed` in a later turn of the main loop, however many changes came before it. Main thread only.
/// @return ends the subscription when it is destroyed, a call that waits included.
[[nodiscard]] Cancellable subscribeToState(AppDependencies &dependencies, std::function<void()> changed);

}
