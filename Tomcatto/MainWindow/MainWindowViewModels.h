#pragma once

#include "Appearance/ViewModelName.h"

namespace tomcatto {

TOMCATTO_VIEW_MODEL(AboutPageViewModel)
TOMCATTO_VIEW_MODEL(GeneralPageViewModel)
TOMCATTO_VIEW_MODEL(MainWindowViewModel)
TOMCATTO_VIEW_MODEL(OnboardingViewModel)
TOMCATTO_VIEW_MODEL(PermissionsPageViewModel)
TOMCATTO_VIEW_MODEL(TimerPageViewModel)
TOMCATTO_VIEW_MODEL(VideosPageViewModel)

}
