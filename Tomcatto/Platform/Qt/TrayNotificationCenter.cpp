#include "Platform/Qt/TrayNotificationCenter.h"

namespace tomcatto {

TrayNotificationCenter::TrayNotificationCenter(MainRunLoop &runLoop)
    : m_pending(runLoop, [this](const PendingNotifications::Ticket &ticket) {
        if (const auto request = m_pending.take(ticket))
            present(*request);
    })
{
}

void TrayNotificationCenter::setTray(ToolkitTray &tray)
{
    m_tray = &tray;
    connect(&tray, &ToolkitTray::messagePressed, this, [this] {
        if (m_delegate)
            m_delegate->didReceive({QLatin1String(defaultActionIdentifier), m_userInfo});
    });
}

void TrayNotificationCenter::present(const NotificationRequest &request)
{
    if (!m_tray || !m_delegate || !m_delegate->willPresent().isBanner)
        return;
    m_userInfo = request.userInfo;
    m_tray->showMessage(request.title, request.body);
}

}
