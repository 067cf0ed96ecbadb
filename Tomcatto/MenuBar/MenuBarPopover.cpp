#include "MenuBar/MenuBarPopover.h"

#include "MenuBar/PopoverPlacement.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainterPath>
#include <QtGui/QRegion>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace tomcatto {
namespace {

constexpr int cornerRadius = 14;

/// Without a compositor the corners would be black, so the window has no corners.
QRegion roundedRegion(QSize size)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF({}, QSizeF(size)), cornerRadius, cornerRadius);
    return QRegion(outline.toFillPolygon().toPolygon());
}

}

MenuBarPopover::MenuBarPopover(ViewHost &viewHost, ModelFactory models, QObject *parent)
    : QObject(parent)
    , m_viewHost(viewHost)
    , m_models(std::move(models))
{
    m_resizing.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_resizing, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { place(value.toRect()); });
}

MenuBarPopover::~MenuBarPopover()
{
    if (QWindow *shown = window())
        disconnect(shown, nullptr, this, nullptr);
}

QWindow *MenuBarPopover::window() const
{
    return m_view ? &m_view->window() : nullptr;
}

void MenuBarPopover::setContentSize(QSize size)
{
    if (size == m_contentSize)
        return;
    m_contentSize = size;
    QWindow *shown = window();
    if (!shown)
        return;
    m_resizing.stop();
    // The view knows how long motions take now; one that does not say so jumps.
    m_resizing.setDuration(shown->property("routeTime").toInt());
    if (m_resizing.duration() == 0) {
        place(target());
        return;
    }
    m_resizing.setStartValue(shown->geometry());
    m_resizing.setEndValue(target());
    m_resizing.start();
}

QRect MenuBarPopover::target() const
{
    QScreen *screen = m_item ? QGuiApplication::screenAt(m_item->center()) : nullptr;
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? popoverRectangle(m_contentSize, m_item, screen->availableGeometry()) : QRect({}, m_contentSize);
}

void MenuBarPopover::place(const QRect &rectangle)
{
    QWindow *shown = window();
    if (!shown)
        return;
    shown->setGeometry(rectangle);
    shown->setMask(roundedRegion(rectangle.size()));
}

bool MenuBarPopover::show(std::optional<QRect> item)
{
    if (m_view)
        return true;
    Q_EMIT willShow();
    auto models = std::make_unique<QObject>();
    m_view =
        m_viewHost.create({QStringLiteral("Tomcatto.MenuBar"), QStringLiteral("MenubarPanelView"), m_models(*models)});
    if (!m_view) {
        Q_EMIT didClose();
        return false;
    }
    // Whatever happens, the models end with the popover at the latest: they use services that outlive it.
    m_shownModels = models.release();
    m_shownModels->setParent(this);
    m_item = item;
    QWindow &shown = m_view->window();
    shown.setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    place(target());
    connect(&shown, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (!isVisible)
            performClose();
    });
    shown.show();
    shown.raise();
    shown.requestActivate();
    return true;
}

void MenuBarPopover::performClose()
{
    if (!m_view)
        return;
    m_resizing.stop();
    QWindow &shown = m_view->window();
    disconnect(&shown, nullptr, this, nullptr);
    shown.hide();
    // Whoever closes may be inside the view, which therefore goes in a later turn of the event loop. Its host may need
    // one more for the window, whose bindings still read the models, so these go after it.
    QMetaObject::invokeMethod(
        this,
        [view = std::shared_ptr(std::move(m_view)), models = m_shownModels]() mutable {
            view.reset();
            models->deleteLater();
        },
        Qt::QueuedConnection);
    Q_EMIT didClose();
}

}
