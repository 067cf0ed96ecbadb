#pragma once

#include "Composition/PlatformServices.h"
#include "Platform/Freedesktop/DesktopSystemSettings.h"
#include "Platform/Freedesktop/FreedesktopNotificationProbe.h"
#include "Platform/Qt/MessageBoxAlert.h"

namespace tomcatto {

/// The adapters of what the services need of a desktop. Main thread only; outlives the services.
class DesktopAdapters final
{
public:
    DesktopAdapters();

    DesktopAdapters(const DesktopAdapters &) = delete;
    DesktopAdapters &operator=(const DesktopAdapters &) = delete;

    [[nodiscard]] const DesktopServices &services() const noexcept { return m_services; }

private:
    MessageBoxAlert m_alert;
    DesktopSystemSettings m_systemSettings;
    FreedesktopNotificationProbe m_notificationProbe;
    DesktopServices m_services{m_alert, m_systemSettings, m_notificationProbe};
};

}
