#include "Platform/Overlay/DesktopScreens.h"

#include "Platform/X11/X11WindowState.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace tomcatto {
namespace {

QList<QScreen *> liveScreens()
{
    QList<QScreen *> live = QGuiApplication::screens();
    // The toolkit's stand-in, which is there while no screen is, has no size.
    live.removeIf([](const QScreen *screen) { return screen->geometry().isEmpty(); });
    return live;
}

/// Names are those of the sockets; two screens of one name, which some servers give, are told apart by their places.
QString screenId(const QScreen *screen)
{
    const QPoint corner = screen->geometry().topLeft();
    return QStringLiteral("%1@%2,%3").arg(screen->name()).arg(corner.x()).arg(corner.y());
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
    , m_changes(runLoop, [] { return !liveScreens().isEmpty(); })
{
    for (QScreen *screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        watch(screen);
        m_changes.note();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { m_changes.note(); });
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { m_changes.note(); });
}

void DesktopScreens::watch(QScreen *screen)
{
    connect(screen, &QScreen::geometryChanged, this, [this] { m_changes.note(); });
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, [this] { m_changes.note(); });
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, [this] { m_changes.note(); });
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
        bypassCompositor(window);
        window.showFullScreen();
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

bool DesktopScreens::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose && watched == m_keyWindow && m_keyWindow->isExposed()) {
        activateAsPager(*m_keyWindow);
        m_keyWindow->removeEventFilter(this);
    }
    return QObject::eventFilter(watched, event);
}

bool DesktopScreens::canFade() const
{
    const X11Display display;
    return display.isValid() && display.isComposited();
}

}
