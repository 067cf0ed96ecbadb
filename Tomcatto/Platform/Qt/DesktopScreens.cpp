#include "Platform/Qt/DesktopScreens.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

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

DesktopScreens::DesktopScreens(MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
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

}
