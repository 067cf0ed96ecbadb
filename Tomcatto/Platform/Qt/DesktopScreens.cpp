#include "Platform/Qt/DesktopScreens.h"

#include "Platform/X11/X11WindowState.h"

#include <QtCore/QEvent>
#include <QtGui/QColor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace tomcatto {
namespace {

/// Whether a screen has the name of the display in place of that of an output: on an X server the last one keeps
/// standing when its output is switched off or unplugged. Where there are no outputs at all it is what there is.
bool isNamedAsDisplay(const QScreen *screen)
{
    return screen->name().contains(u':');
}

/// Neither names nor places will do: some servers give several screens one name, and screens move.
QString screenId(const QScreen *screen)
{
    return QString::number(reinterpret_cast<quintptr>(screen), 16);
}

/// A covering window gains nothing from a compositor, which costs a copy of each frame.
void bypassCompositor(QWindow &window)
{
    const X11Display display;
    if (!display.isValid())
        return;
    constexpr uint32_t bypass = 1;
    xcb_change_property(display.connection(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        display.atom("_NET_WM_BYPASS_COMPOSITOR"), XCB_ATOM_CARDINAL, 32, 1, &bypass);
}

/// Asks as a pager does: what the user did last was elsewhere, so a plain request could be refused.
void activateAsPager(QWindow &window)
{
    const X11Display display;
    if (!display.isValid())
        return;
    constexpr uint32_t fromPager = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = display.atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = fromPager;
    xcb_send_event(display.connection(), 0, display.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(display.connection());
}

}

DesktopScreens::DesktopScreens(MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_runLoop(runLoop)
    , m_changes(runLoop, [this] { return !liveScreens().isEmpty(); })
{
    for (QScreen *screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        watch(screen);
        noteChange();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &DesktopScreens::noteChange);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &DesktopScreens::noteChange);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        m_return = isCovering(focused) ? Cancellable() : m_runLoop.after(returnTime, [this] { returnToFront(); });
    });
}

void DesktopScreens::watch(QScreen *screen)
{
    m_hasOutputs = m_hasOutputs || !isNamedAsDisplay(screen);
    connect(screen, &QScreen::geometryChanged, this, &DesktopScreens::noteChange);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &DesktopScreens::noteChange);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, &DesktopScreens::noteChange);
}

void DesktopScreens::noteChange()
{
    m_changes.note();
}

QList<QScreen *> DesktopScreens::liveScreens() const
{
    QList<QScreen *> live = QGuiApplication::screens();
    // The toolkit's stand-in, which is there while no screen is, has no size.
    live.removeIf([this](const QScreen *screen) {
        return screen->geometry().isEmpty() || (m_hasOutputs && isNamedAsDisplay(screen));
    });
    return live;
}

std::vector<Screen> DesktopScreens::screens() const
{
    std::vector<Screen> screens;
    for (const QScreen *screen : liveScreens())
        screens.push_back({screenId(screen), screen->geometry(), screen->devicePixelRatio(),
                           screen == QGuiApplication::primaryScreen()});
    return screens;
}

Cancellable DesktopScreens::onChanged(std::function<void()> handler)
{
    return m_changes.onChanged(std::move(handler));
}

void DesktopScreens::cover(QWindow &window, const QString &id)
{
    for (QScreen *screen : liveScreens()) {
        if (screenId(screen) != id)
            continue;
        window.setScreen(screen);
        window.setFlags(window.flags() | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        window.setGeometry(screen->geometry());
        X11WindowState().setFloating(window);
        X11WindowState().setGround(window, window.property("color").value<QColor>().rgb());
        bypassCompositor(window);
        window.showFullScreen();
        m_covering.removeAll(nullptr);
        m_covering.append(&window);
        return;
    }
}

void DesktopScreens::makeKey(QWindow &window)
{
    m_keyWindow = &window;
    window.installEventFilter(this);
    window.requestActivate();
    if (window.isExposed())
        activateAsPager(window);
}

void DesktopScreens::uncover(QWindow &window)
{
    m_covering.removeAll(&window);
    if (m_keyWindow == &window)
        m_keyWindow = nullptr;
}

bool DesktopScreens::isCovering(const QWindow *window) const
{
    return window != nullptr && m_covering.contains(window);
}

void DesktopScreens::returnToFront()
{
    for (const QPointer<QWindow> &window : m_covering) {
        if (window && window->isVisible())
            window->raise();
    }
    if (m_keyWindow && m_keyWindow->isExposed())
        activateAsPager(*m_keyWindow);
}

bool DesktopScreens::eventFilter(QObject *watched, QEvent *event)
{
    if (const auto *shown = qobject_cast<QWindow *>(watched);
        event->type() == QEvent::Expose && shown && shown->isExposed()) {
        watched->removeEventFilter(this);
        // Window managers give the keyboard to each window that they get to know, so it is asked for after every one.
        if (m_keyWindow && m_keyWindow->isExposed())
            activateAsPager(*m_keyWindow);
    }
    return QObject::eventFilter(watched, event);
}

bool DesktopScreens::canFade() const
{
    const X11Display display;
    return display.isValid() && display.isComposited();
}

}
