#include "Platform/Qt/ToolkitTrayPresence.h"

#include <chrono>
#include <QtWidgets/QSystemTrayIcon>

namespace tomcatto {

ToolkitTrayPresence::ToolkitTrayPresence()
    : m_hasTray(QSystemTrayIcon::isSystemTrayAvailable())
{
    constexpr std::chrono::seconds lookInterval{10};
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ToolkitTrayPresence::look);
    m_timer.start(lookInterval);
}

void ToolkitTrayPresence::look()
{
    const bool hasTray = QSystemTrayIcon::isSystemTrayAvailable();
    if (std::exchange(m_hasTray, hasTray) != hasTray)
        Q_EMIT trayChanged();
}

}
