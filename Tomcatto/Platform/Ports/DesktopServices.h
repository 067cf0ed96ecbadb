#pragma once

#include "Platform/Ports/Alert.h"
#include "Platform/Ports/HotKeys.h"
#include "Platform/Ports/NotificationProbe.h"
#include "Platform/Ports/Surroundings.h"
#include "Platform/Ports/SystemSettings.h"
#include "Platform/Ports/UserNotificationCenter.h"

#include <memory>

namespace tomcatto {

/// What a desktop gives the services.
struct DesktopServices
{
    /// Owns everything below, which lives no longer than the application object.
    std::shared_ptr<const void> adapters;
    Alert &alert;
    SystemSettings &systemSettings;
    NotificationProbe &notificationProbe;
    HotKeys &hotKeys;
    Surroundings surroundings;
    /// Shows notifications where the platform itself does not; `nullptr` where it does.
    UserNotificationCenter *notificationCenter = nullptr;
};

}
