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
constexpr std::chrono::milliseconds settlingTime(100);
/// A window manager may insist on a place of its own.
constexpr int mostCorrections = 3;

/// Without a compositor the corners would be black, so the window then has no corners. With one the view's own are
/// smooth.
QRegion roundedRegion(QSize size)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF({}, QSizeF(size)), cornerRadius, cornerRadius);
    return QRegion(outline.toFillPolygon().toPolygon());
}

}

MenuBarPopover::MenuBarPopover(ViewWindows &windows, MainRunLoop &runLoop, ModelFactory models, QObject *parent)
    : QObject(parent)
    , m_windows(windows)
    , m_runLoop(runLoop)
    , m_models(std::move(models))
{
    m_resizing.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_resizing, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { place(value.toRect()); });
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
    // Of one size, and says so: a compositor that tiles windows lets such a one float.
    const QSize size = rectangle.size();
    shown->setMinimumSize(size.boundedTo(shown->minimumSize()));
    shown->setMaximumSize(size.expandedTo(shown->maximumSize()));
    shown->setGeometry(rectangle);
    shown->setMinimumSize(size);
    shown->setMaximumSize(size);
    if (!shown->property("isComposited").toBool())
        shown->setMask(roundedRegion(size));
}

void MenuBarPopover::correctPlace()
{
    const QWindow *shown = window();
    const bool isMoving = m_resizing.state() == QAbstractAnimation::Running;
    if (!shown || isMoving || shown->position() == target().topLeft() || m_corrections >= mostCorrections)
        return;
    // A window manager that puts a frame around the window may do so elsewhere and move it then. What was reported in
    // between stays, and presses on the window would count as outside of it, until it is moved once more.
    ++m_corrections;
    place(target());
}

bool MenuBarPopover::show(std::optional<QRect> item)
{
    if (!m_shown && !makeWindow(item))
        return false;
    m_shown->present();
    return true;
}

bool MenuBarPopover::makeWindow(std::optional<QRect> item)
{
    Q_EMIT willShow();
    const auto models = std::make_shared<QObject>();
    m_shown = m_windows.make(
        {QStringLiteral("Tomcatto.MenuBar"), QStringLiteral("MenubarPanelView"), m_models(*models)}, models);
    if (!m_shown) {
        Q_EMIT didClose();
        return false;
    }
    m_item = item;
    QWindow &window = m_shown->window();
    window.setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    place(target());
    m_corrections = 0;
    const auto settle = [this] { m_settling = m_runLoop.after(settlingTime, [this] { correctPlace(); }); };
    connect(&window, &QWindow::xChanged, m_shown.get(), settle);
    connect(&window, &QWindow::yChanged, m_shown.get(), settle);
    connect(m_shown.get(), &ViewWindow::closed, this, &MenuBarPopover::performClose);
    return true;
}

void MenuBarPopover::performClose()
{
    if (!isShown())
        return;
    m_resizing.stop();
    m_shown.reset();
    m_settling.cancel();
    Q_EMIT didClose();
}

}
