#pragma once

#include "App/ApplicationSurfaces.h"

namespace tomcatto {

/// The application with its terminal front end.
[[nodiscard]] FrontEnd terminalFrontEnd();

}
