#include "Platform/Qt/DesktopScreens.h"

#include <QtCore/QEvent>
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

}

DesktopScreens::DesktopScreens(MainRunLoop &runLoop, const WindowSystem &windowSystem, QObject *parent)
    : QObject(parent)
    , m_runLoop(runLoop)
    , m_windowSystem(windowSystem)
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
        m_windowSystem.setCovering(window);
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
        m_windowSystem.activate(window);
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
        m_windowSystem.activate(*m_keyWindow);
}

bool DesktopScreens::eventFilter(QObject *watched, QEvent *event)
{
    if (const auto *shown = qobject_cast<QWindow *>(watched);
        event->type() == QEvent::Expose && shown && shown->isExposed()) {
        watched->removeEventFilter(this);
        // Window managers give the keyboard to each window that they get to know, so it is asked for after every one.
        if (m_keyWindow && m_keyWindow->isExposed())
            m_windowSystem.activate(*m_keyWindow);
    }
    return QObject::eventFilter(watched, event);
}

}
