#pragma once

#include "App/ApplicationSurfaces.h"

namespace tomcatto {

/// The application on a desktop. @param desktop outlives what is made of it
[[nodiscard]] FrontEnd desktopFrontEnd(DesktopPlatform &desktop);

}
