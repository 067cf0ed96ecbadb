#include "Platform/Qt/FloatingPillWindow.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Qt/PillAccessibility.h"

#include <algorithm>
#include <chrono>
#include <QtGui/QAccessible>
#include <QtGui/QCursor>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QStyleHints>

namespace tomcatto {

namespace {

const QString placeKey = QStringLiteral("floatingPillPosition");
constexpr int stripHeight = 32;
constexpr int stripRadius = 16;
constexpr int stripPadding = 4;
constexpr int titlePadding = 14;
constexpr int titlePixels = 13;
constexpr std::chrono::milliseconds settlingTime(100);
/// A window manager may insist on a place of its own.
constexpr int mostCorrections = 3;
constexpr QRgb lightStrip = 0xFFECE9E7;
constexpr QRgb darkStrip = 0xFF2A2729;
constexpr QRgb lightInk = 0xFF1D1D1F;
constexpr QRgb darkInk = 0xFFF5F5F7;
constexpr QRgb lightFocus = 0xFF3D6FD6;
constexpr QRgb darkFocus = 0xFFADC6FF;

}

FloatingPillWindow::FloatingPillWindow(UserDefaults &defaults, const WindowSystem &windowSystem)
    : m_defaults(defaults)
    , m_windowSystem(windowSystem)
{
    installPillAccessibility();
    QSurfaceFormat translucent = format();
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    // The name that the toolkit's platforms know it by.
    setProperty("_q_showWithoutActivating", true);
    setTitle(productName);
    m_settling.setSingleShot(true);
    m_settling.setInterval(settlingTime);
    connect(&m_settling, &QTimer::timeout, this, &FloatingPillWindow::correctPlace);
    connect(this, &QWindow::screenChanged, this, &FloatingPillWindow::checkScale);
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens)
        watchScreen(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        watchScreen(screen);
        restorePlace();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &FloatingPillWindow::restorePlace);
    restorePlace();
}

FloatingPillWindow::~FloatingPillWindow() = default;

void FloatingPillWindow::watchScreen(QScreen *screen)
{
    connect(screen, &QScreen::availableGeometryChanged, this, &FloatingPillWindow::place);
    connect(screen, &QScreen::geometryChanged, this, &FloatingPillWindow::place);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &FloatingPillWindow::checkScale);
}

void FloatingPillWindow::restorePlace()
{
    // "fraction screen name"; the screen may be away for now.
    m_screen = QGuiApplication::primaryScreen();
    const auto stored = m_defaults.storedValue(placeKey);
    if (const auto *text = stored ? std::get_if<QString>(&*stored) : nullptr) {
        bool isNumber = false;
        const double fraction = text->section(u' ', 0, 0).toDouble(&isNumber);
        if (isNumber && fraction >= 0 && fraction <= 1)
            m_fraction = fraction;
        const auto screens = QGuiApplication::screens();
        const auto found = std::ranges::find(screens, text->section(u' ', 1), &QScreen::name);
        if (found != screens.end())
            m_screen = *found;
    }
    place();
    checkScale();
}

void FloatingPillWindow::show()
{
    if (isVisible())
        return;
    create();
    m_windowSystem.setFloating(*this);
    fit();
    m_corrections = 0;
    QRasterWindow::show();
}

void FloatingPillWindow::present(const StatusItemPresentation &presentation)
{
    m_pill = presentation.pill;
    m_title = presentation.title;
    m_hint.setText(presentation.toolTip);
    m_accessibleText = presentation.accessibleText;
    fit();
    update();
}

void FloatingPillWindow::setDark(bool isDark)
{
    m_hint.setDark(isDark);
    if (std::exchange(m_isDark, isDark) != isDark)
        update();
}

double FloatingPillWindow::scale() const
{
    if (isVisible())
        return devicePixelRatio();
    return m_screen ? m_screen->devicePixelRatio() : qGuiApp->devicePixelRatio();
}

void FloatingPillWindow::checkScale()
{
    if (const double now = scale(); std::exchange(m_lastScale, now) != now)
        Q_EMIT scaleChanged();
}

QFont FloatingPillWindow::titleFont() const
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(titlePixels);
    font.setBold(true);
    return font;
}

void FloatingPillWindow::setFixedSize(QSize size)
{
    // Of one size, and says so: a compositor that tiles windows lets such a one float.
    setMinimumSize({});
    setMaximumSize(size);
    setMinimumSize(size);
    resize(size);
}

void FloatingPillWindow::fit()
{
    const int content = m_pill.isNull() ? QFontMetrics(titleFont()).horizontalAdvance(m_title) + 2 * titlePadding
                                        : qRound(m_pill.deviceIndependentSize().width()) + 2 * stripPadding;
    const QSize wanted(std::max(content, stripHeight), stripHeight);
    // Whether there is a compositor is asked of the display server, which is too dear for every second.
    if (wanted == size() && isVisible())
        return;
    setFixedSize(wanted);
    place();
    shape();
}

void FloatingPillWindow::shape()
{
    // Without a compositor there is no translucency, and the corners are cut off instead.
    if (m_windowSystem.isComposited()) {
        setMask({});
        return;
    }
    QRegion strip(stripRadius, 0, width() - 2 * stripRadius, stripHeight);
    strip += QRegion(0, 0, stripHeight, stripHeight, QRegion::Ellipse);
    strip += QRegion(width() - stripHeight, 0, stripHeight, stripHeight, QRegion::Ellipse);
    setMask(strip);
}

QPoint FloatingPillWindow::wantedPlace() const
{
    const QRect area = m_screen->availableGeometry();
    const int left = area.left() + qRound(m_fraction * area.width()) - width() / 2;
    return {std::clamp(left, area.left(), std::max(area.left(), area.right() + 1 - width())), area.top()};
}

void FloatingPillWindow::place()
{
    if (m_screen && m_windowSystem.canPlaceWindows() && !m_isDragged)
        setPosition(wantedPlace());
}

void FloatingPillWindow::moveEvent(QMoveEvent *event)
{
    QRasterWindow::moveEvent(event);
    m_settling.start();
}

void FloatingPillWindow::correctPlace()
{
    if (!isVisible() || !m_screen || m_pressed || position() == wantedPlace() || m_corrections >= mostCorrections)
        return;
    // A window manager that puts a frame around the window may do so elsewhere and move it then. What was reported in
    // between stays, and the panel would open there, until the window is moved once more.
    ++m_corrections;
    place();
}

void FloatingPillWindow::paintEvent(QPaintEvent * /*event*/)
{
    const QRect strip({}, size());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(m_isDark ? darkStrip : lightStrip));
    if (mask().isEmpty())
        painter.drawRoundedRect(strip, stripRadius, stripRadius);
    else // What a smooth corner leaves out would be black.
        painter.drawRect(strip);
    if (m_pill.isNull()) {
        painter.setPen(QColor::fromRgba(m_isDark ? darkInk : lightInk));
        painter.setFont(titleFont());
        painter.drawText(strip, Qt::AlignCenter, m_title);
    } else {
        painter.drawImage(QPointF(stripPadding, stripPadding), m_pill);
    }
    if (m_showsFocus && isActive()) {
        painter.setPen(QPen(QColor::fromRgba(m_isDark ? darkFocus : lightFocus), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(strip).adjusted(1, 1, -1, -1), stripRadius - 1, stripRadius - 1);
    }
}

bool FloatingPillWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        m_hint.hide();
    if (event->type() == QEvent::FocusOut) {
        m_isSpaceDown = false;
        update();
    }
    return QRasterWindow::event(event);
}

void FloatingPillWindow::focusInEvent(QFocusEvent *event)
{
    // The window manager gives the keyboard before the press comes, and does not say why.
    m_showsFocus = !geometry().contains(QCursor::pos());
    update();
    // Readers keep the words that they were told last.
    for (const auto kind : {QAccessible::NameChanged, QAccessible::Focus}) {
        QAccessibleEvent news(this, kind);
        QAccessible::updateAccessibility(&news);
    }
    QRasterWindow::focusInEvent(event);
}

void FloatingPillWindow::mousePressEvent(QMouseEvent *event)
{
    m_showsFocus = false;
    m_hint.dismiss();
    update();
    if (event->button() == Qt::RightButton)
        Q_EMIT menuWanted(event->globalPosition().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = event->globalPosition().toPoint();
    m_pressedLeft = x();
    m_isDragged = false;
}

void FloatingPillWindow::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint cursor = event->globalPosition().toPoint();
    if (!m_pressed)
        return m_hint.pointerAt(cursor);
    m_isDragged =
        m_isDragged || (cursor - *m_pressed).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
    if (!m_isDragged)
        return;
    if (m_windowSystem.canPlaceWindows())
        drag(cursor - *m_pressed, cursor);
    else if (startSystemMove())
        m_pressed.reset();
}

void FloatingPillWindow::drag(QPoint way, QPoint cursor)
{
    if (QScreen *screen = QGuiApplication::screenAt(cursor))
        m_screen = screen;
    if (!m_screen)
        return;
    const QRect area = m_screen->availableGeometry();
    const int left =
        std::clamp(m_pressedLeft + way.x(), area.left(), std::max(area.left(), area.right() + 1 - width()));
    m_fraction = std::clamp((left + width() / 2.0 - area.left()) / std::max(area.width(), 1), 0.0, 1.0);
    setPosition(left, area.top());
}

void FloatingPillWindow::finishDrag()
{
    m_isDragged = false;
    if (m_screen)
        m_defaults.setValue(placeKey, QString::number(m_fraction, 'f', 4) + u' ' + m_screen->name());
}

void FloatingPillWindow::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed.reset();
    if (m_isDragged)
        finishDrag();
    else if (QRect({}, size()).contains(event->position().toPoint()))
        Q_EMIT activated();
}

void FloatingPillWindow::keyPressEvent(QKeyEvent *event)
{
    m_showsFocus = true;
    update();
    const bool isMenuKey =
        event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (isMenuKey)
        Q_EMIT menuWanted(geometry().bottomLeft());
    else if (event->isAutoRepeat())
        return;
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT activated();
    else if (event->key() == Qt::Key_Space)
        m_isSpaceDown = true;
    else
        QRasterWindow::keyPressEvent(event);
}

void FloatingPillWindow::keyReleaseEvent(QKeyEvent *event)
{
    // The button that gets the keyboard when the panel opens would take this release for its own.
    const bool isSpace = event->key() == Qt::Key_Space && !event->isAutoRepeat();
    if (isSpace && std::exchange(m_isSpaceDown, false))
        Q_EMIT activated();
}

QAccessibleInterface *FloatingPillWindow::accessibleRoot() const
{
    return QAccessible::queryAccessibleInterface(const_cast<FloatingPillWindow *>(this));
}

}
