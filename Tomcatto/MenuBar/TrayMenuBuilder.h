#pragma once

#include "Localization/LocalizedStrings.h"
#include "MenuBar/TransportControls.h"
#include "Platform/Ports/StatusItem.h"

namespace tomcatto {

/// The status item's menu: the same transport controls as the panel's, by the same rules.
/// @param pillChoice whether the user asked for the floating pill; nothing where that is not the user's choice, and
/// then the menu does not offer it.
[[nodiscard]] TrayMenu trayMenu(const TransportControls &controls, const LocalizedStrings &strings,
                                std::optional<bool> pillChoice);

}
