#pragma once

#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/StatusItem.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// The status item's menu for the machine's state: the same transport controls as the panel's, by the same rules, each
/// about the phase of now.
/// @param pillChoice whether the user asked for the floating pill; nothing if that is not the user's choice, and
/// then the menu does not offer it.
[[nodiscard]] TrayMenu trayMenu(const PomodoroStateMachine &stateMachine, const LocalizedStrings &strings,
                                std::optional<bool> pillChoice);

}
