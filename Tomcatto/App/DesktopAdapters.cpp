#include "App/DesktopAdapters.h"

namespace tomcatto {

DesktopAdapters::DesktopAdapters()
    : m_loginItem(AutostartLoginItem::programAtLogin())
    , m_systemSettings(DesktopSystemSettings::currentDesktops(), AutostartLoginItem::userFolder())
    , m_notificationProbe(QDBusConnection::sessionBus())
{
}

}
