#include "Platform/Qt/WindowView.h"

#include <QtCore/QEvent>
#include <QtGui/QPainterPath>
#include <QtGui/QScreen>

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

WindowView::WindowView(std::unique_ptr<QWindow> window, ViewDescription::Kind kind, WindowPlaces &places)
    : m_window(std::move(window))
    , m_places(places)
    , m_gliding(*new QVariantAnimation(m_window.get()))
    , m_fading(*new QVariantAnimation(m_window.get()))
{
    m_fading.setObjectName(QStringLiteral("fading"));
    m_window->installEventFilter(this);
    m_window->setProperty("isComposited", m_places.windowSystem.isComposited());
    connect(m_window.get(), &QWindow::activeChanged, this, [this] { tell(ViewEvent::activeChanged); });
    for (const auto changed : {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        connect(m_window.get(), changed, this, [this] { tell(ViewEvent::frameChanged); });
    if (kind == ViewDescription::Kind::panel)
        becomePanel();
    else if (kind == ViewDescription::Kind::window)
        fitScreen();
}

WindowView::~WindowView()
{
    m_window->removeEventFilter(this);
    m_window->disconnect(this);
    m_window->hide();
}

void WindowView::fitScreen()
{
    // Larger than its screen, its lower rows and its corner would be out of reach. How high the title bar is shows only
    // later, when the window has its frame.
    constexpr int titleBarHeight = 40;
    const QScreen *const screen = m_window->screen();
    if (screen == nullptr)
        return;
    const QSize room = screen->availableSize() - QSize(0, titleBarHeight);
    m_window->resize(m_window->size().boundedTo(room).expandedTo(m_window->minimumSize()));
}

void WindowView::present()
{
    if (m_window->windowStates().testFlag(Qt::WindowMinimized))
        m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
}

void WindowView::hide()
{
    m_window->hide();
}

void WindowView::becomePanel()
{
    m_window->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_gliding.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_gliding, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { setPlace(value.toRect()); });
    const auto settle = [this] { m_settling = m_places.runLoop.after(settlingTime, [this] { correctPlace(); }); };
    connect(m_window.get(), &QWindow::xChanged, this, settle);
    connect(m_window.get(), &QWindow::yChanged, this, settle);
}

void WindowView::place(const QRect &rectangle)
{
    m_target = rectangle;
    m_gliding.stop();
    // The view knows how long motions take now; one that does not say so jumps.
    m_gliding.setDuration(m_window->isVisible() ? m_window->property("routeTime").toInt() : 0);
    if (m_gliding.duration() == 0)
        return setPlace(m_target);
    m_gliding.setStartValue(m_window->geometry());
    m_gliding.setEndValue(m_target);
    m_gliding.start();
}

void WindowView::setPlace(const QRect &rectangle)
{
    // Of one size, and says so: a compositor that tiles windows lets such a one float.
    const QSize size = rectangle.size();
    m_window->setMinimumSize(size.boundedTo(m_window->minimumSize()));
    m_window->setMaximumSize(size.expandedTo(m_window->maximumSize()));
    m_window->setGeometry(rectangle);
    m_window->setMinimumSize(size);
    m_window->setMaximumSize(size);
    if (!m_window->property("isComposited").toBool())
        m_window->setMask(roundedRegion(size));
}

void WindowView::correctPlace()
{
    const bool isMoving = m_gliding.state() == QAbstractAnimation::Running;
    if (isMoving || m_window->position() == m_target.topLeft() || m_corrections >= mostCorrections)
        return;
    // A window manager that puts a frame around the window may do so elsewhere and move it then. What was reported in
    // between stays, and presses on the window would count as outside of it, until it is moved once more.
    ++m_corrections;
    setPlace(m_target);
}

void WindowView::cover(const QRect &frame)
{
    if (m_places.windowSystem.canFade()) {
        m_window->setOpacity(0);
        fade(true, {});
    }
    m_places.covering.cover(*m_window, frame);
}

void WindowView::makeKey()
{
    m_window->raise();
    m_places.covering.makeKey(*m_window);
}

void WindowView::leave()
{
    m_window->setProperty("isLeaving", true);
    m_places.covering.uncover(*m_window);
    if (m_places.windowSystem.canFade() && m_window->isVisible())
        fade(false, [this] { endLeaving(); });
    else
        endLeaving();
}

void WindowView::endLeaving()
{
    m_window->hide();
    m_places.runLoop.async(*this, [this] { tell(ViewEvent::left); });
}

void WindowView::fade(bool isIn, std::function<void()> then)
{
    // It may leave while it still comes. Being told other values counts as a change.
    m_fading.stop();
    m_fading.disconnect(this);
    m_fading.setDuration(m_window->property(isIn ? "inTime" : "outTime").toInt());
    m_fading.setEasingCurve(QEasingCurve::OutQuad);
    m_fading.setStartValue(m_window->opacity());
    m_fading.setEndValue(isIn ? 1.0 : 0.0);
    connect(&m_fading, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { m_window->setOpacity(value.toReal()); });
    connect(&m_fading, &QAbstractAnimation::finished, this, [then = std::move(then)] {
        if (then)
            then();
    });
    m_fading.start();
}

bool WindowView::eventFilter(QObject *watched, QEvent *event)
{
    // Hiding alone does not count: a window whose screen goes is hidden for a moment.
    if (event->type() == QEvent::Close) {
        m_places.runLoop.async(*this, [this] {
            if (!m_window->isVisible())
                tell(ViewEvent::closed);
        });
    }
    return QObject::eventFilter(watched, event);
}

}
