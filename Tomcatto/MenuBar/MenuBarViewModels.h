#pragma once

#include "Appearance/ViewModelName.h"

namespace tomcatto {

TOMCATTO_VIEW_MODEL(MenubarPanelViewModel)
TOMCATTO_VIEW_MODEL(StatisticsViewModel)
TOMCATTO_VIEW_VALUE(PanelClock)
TOMCATTO_VIEW_VALUE(PanelPhase)
TOMCATTO_VIEW_VALUE(PanelStrip)

}
