#include "Platform/Freedesktop/StatusNotifierItem.h"

#include "Foundation/ApplicationIdentity.h"

#include <chrono>
#include <QtCore/QPoint>
#include <utility>

namespace tomcatto {

namespace {

constexpr std::chrono::seconds toolTipPause{5};
constexpr std::chrono::milliseconds longerThanATick{1'500};

}

StatusNotifierItem::StatusNotifierItem(QString menuPath)
    : m_menuPath(std::move(menuPath))
{
    registerStatusNotifierTypes();
    m_lastToolTip.setSingleShot(true);
    m_lastToolTip.setInterval(longerThanATick);
    connect(&m_lastToolTip, &QTimer::timeout, this, &StatusNotifierItem::announceToolTip);
}

QString StatusNotifierItem::id() const
{
    return applicationIdentifier;
}

QString StatusNotifierItem::title() const
{
    return productName;
}

void StatusNotifierItem::update(const QList<QImage> &images, const QString &toolTip, const QString &accessibleText)
{
    m_toolTip = toolTip;
    m_accessibleText = accessibleText;
    const bool isIconNew = images != m_images;
    if (isIconNew) {
        m_images = images;
        m_icons.clear();
        for (const QImage &image : images)
            m_icons.append(iconPixmap(image));
        announceIcon();
    }
    if (m_toolTip == m_announcedToolTip)
        return;
    if (isIconNew || m_toolTipPause.hasExpired())
        announceToolTip();
    else
        m_lastToolTip.start();
}

void StatusNotifierItem::setHosted(bool isHosted)
{
    if (std::exchange(m_isHosted, isHosted) || !isHosted)
        return;
    announceIcon();
    announceToolTip();
}

void StatusNotifierItem::announceIcon()
{
    if (m_isHosted)
        Q_EMIT NewIcon();
}

void StatusNotifierItem::announceToolTip()
{
    m_lastToolTip.stop();
    m_announcedToolTip = m_toolTip;
    m_toolTipPause.setRemainingTime(toolTipPause);
    if (m_isHosted)
        Q_EMIT NewToolTip();
}

void StatusNotifierItem::Activate(int x, int y)
{
    Q_EMIT activated({x, y});
}

void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    Q_EMIT activated({x, y});
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    Q_EMIT menuWanted({x, y});
}

void StatusNotifierItem::Scroll(int /*delta*/, const QString & /*orientation*/) {}

void StatusNotifierItem::ProvideXdgActivationToken(const QString &token)
{
    // The next window that asks to be activated hands it to the compositor.
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

}
