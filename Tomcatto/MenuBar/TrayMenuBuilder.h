#pragma once

#include "Localization/LocalizedStrings.h"
#include "MenuBar/TransportControls.h"
#include "Platform/Ports/StatusItem.h"

namespace tomcatto {

/// The status item's menu: the same transport controls as the panel's, by the same rules.
/// @param isPillWanted whether the user asked for the floating pill
[[nodiscard]] TrayMenu trayMenu(const TransportControls &controls, const LocalizedStrings &strings, bool isPillWanted);

}
