#pragma once

#include "Appearance/ViewModelName.h"

namespace tomcatto {

TOMCATTO_VIEW_MODEL(BreakContentModel)

}
