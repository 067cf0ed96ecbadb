#include "App/DesktopAdapters.h"

#include <QtCore/QCoreApplication>

namespace tomcatto {

DesktopAdapters::DesktopAdapters()
    : m_loginItem(QCoreApplication::applicationFilePath())
    , m_systemSettings(DesktopSystemSettings::currentDesktops(), AutostartLoginItem::userFolder())
    , m_notificationProbe(QDBusConnection::sessionBus())
{
}

}
