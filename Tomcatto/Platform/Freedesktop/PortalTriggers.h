#pragma once

#include "Platform/Ports/KeyModifiers.h"

#include <QtCore/QString>

namespace tomcatto {

/// A combination as portals write it, such as "CTRL+ALT+space". The key is named by what the US layout has in its
/// place; empty where that has no name.
[[nodiscard]] QString portalTrigger(quint16 keyCode, KeyModifiers modifiers);

}
