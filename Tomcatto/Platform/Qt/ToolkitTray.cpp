#include "Platform/Qt/ToolkitTray.h"

#include <chrono>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QSystemTrayIcon>
#include <QtWidgets/QWidget>

namespace tomcatto {

namespace {

constexpr std::chrono::milliseconds messageTime = std::chrono::seconds(10);

QIcon iconOf(const std::vector<QImage> &images)
{
    QIcon icon;
    for (const QImage &image : images)
        icon.addPixmap(QPixmap::fromImage(image));
    return icon;
}

}

ToolkitTray::ToolkitTray()
{
    m_fitting.setSingleShot(true);
    m_fitting.setInterval(std::chrono::milliseconds(500));
    connect(&m_fitting, &QTimer::timeout, this, &ToolkitTray::followEdge);
    connect(&m_presence, &ToolkitTrayPresence::trayChanged, this, [this] {
        m_icon.reset();
        update();
        Q_EMIT hostChanged();
    });
}

ToolkitTray::~ToolkitTray() = default;

std::optional<QRect> ToolkitTray::geometry() const
{
    const QRect place = m_icon ? m_icon->geometry() : QRect();
    return place.isEmpty() ? std::nullopt : std::optional(place);
}

void ToolkitTray::setShown(bool isShown)
{
    m_isShown = isShown;
    update();
}

void ToolkitTray::show(const StatusItemPresentation &presentation)
{
    if (m_icon && presentation.squareIcons != m_images)
        m_icon->setIcon(iconOf(presentation.squareIcons));
    if (m_icon && presentation.toolTip != m_toolTip)
        m_icon->setToolTip(presentation.toolTip);
    m_images = presentation.squareIcons;
    m_toolTip = presentation.toolTip;
    update();
}

void ToolkitTray::showMessage(const QString &title, const QString &text)
{
    if (m_icon)
        m_icon->showMessage(title, text, m_icon->icon(), static_cast<int>(messageTime.count()));
}

void ToolkitTray::update()
{
    // Without a picture the tray would keep an empty place.
    const bool isWanted = m_isShown && m_presence.hasTray() && !m_images.empty();
    if (isWanted && !m_icon)
        makeIcon();
    else if (!isWanted)
        m_icon.reset();
}

void ToolkitTray::makeIcon()
{
    m_icon = std::make_unique<QSystemTrayIcon>(iconOf(m_images));
    m_icon->setToolTip(m_toolTip);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        switch (reason) {
        case QSystemTrayIcon::Trigger:
        case QSystemTrayIcon::MiddleClick:
            Q_EMIT activated(geometry());
            break;
        case QSystemTrayIcon::Context:
            Q_EMIT menuWanted(QCursor::pos());
            break;
        case QSystemTrayIcon::DoubleClick: // The first click has done it.
        case QSystemTrayIcon::Unknown:
            break;
        }
    });
    connect(m_icon.get(), &QSystemTrayIcon::messageClicked, this, &ToolkitTray::messagePressed);
    m_icon->show();
    m_fitting.start();
    // Where the toolkit has a window for the icon, that tells when the tray gives it another size. To ask for its place
    // whenever the icon changes would wake up the program and the display server.
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("QSystemTrayIconSys"))
            window->installEventFilter(this);
    }
}

bool ToolkitTray::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        m_fitting.start();
    return TrayIcon::eventFilter(watched, event);
}

void ToolkitTray::followEdge()
{
    const QRect place = geometry().value_or(QRect());
    const int edge = qRound(std::min(place.width(), place.height()) * qGuiApp->devicePixelRatio());
    constexpr int leastEdge = 8;
    if (edge >= leastEdge && edge != m_edge) {
        m_edge = edge;
        Q_EMIT hostChanged();
    }
}

}
