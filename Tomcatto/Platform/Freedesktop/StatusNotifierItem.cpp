#include "Platform/Freedesktop/StatusNotifierItem.h"

#include "Foundation/ApplicationIdentity.h"

#include <chrono>
#include <QtCore/QPoint>

namespace tomcatto {

StatusNotifierItem::StatusNotifierItem(QString menuPath)
    : m_menuPath(std::move(menuPath))
{
    registerStatusNotifierTypes();
    m_toolTipPause.setSingleShot(true);
    m_toolTipPause.setTimerType(Qt::CoarseTimer);
    m_toolTipPause.setInterval(std::chrono::seconds(5));
    connect(&m_toolTipPause, &QTimer::timeout, this, [this] {
        if (m_toolTip != m_announcedToolTip)
            announceToolTip();
    });
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
        Q_EMIT NewIcon();
    }
    if (m_toolTip != m_announcedToolTip && (isIconNew || !m_toolTipPause.isActive()))
        announceToolTip();
}

void StatusNotifierItem::announceToolTip()
{
    m_announcedToolTip = m_toolTip;
    m_toolTipPause.start();
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
