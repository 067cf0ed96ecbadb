#include "App/DesktopAdapters.h"

#include "Platform/Freedesktop/AutostartLoginItem.h"

namespace tomcatto {

DesktopAdapters::DesktopAdapters()
    : m_systemSettings(DesktopSystemSettings::currentDesktops(), AutostartLoginItem::userFolder())
    , m_notificationProbe(QDBusConnection::sessionBus())
{
}

}
