#include "Platform/Sets/LinuxSurroundings.h"

#include "Platform/Freedesktop/LogindLock.h"
#include "Platform/Freedesktop/MutterRest.h"
#include "Platform/Freedesktop/ScreenSaverLock.h"
#include "Platform/Posix/DisplayProbe.h"
#include "Platform/Wayland/WaylandFullScreen.h"
#include "Platform/Wayland/WaylandRest.h"
#include "Platform/X11/X11FullScreen.h"
#include "Platform/X11/X11Rest.h"

#include <algorithm>
#include <QtCore/QEventLoop>
#include <QtCore/QStringList>
#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

using namespace std::chrono_literals;
using Named = LinuxSurroundings::Named;

struct NamedMaker
{
    QString name;
    RestSources::Maker make;
};

/// An X server that runs within a Wayland compositor knows its own windows and their input alone.
bool isWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland")) || DisplayProbe().isWaylandReachable();
}

std::vector<NamedMaker> restMakers()
{
    std::vector<NamedMaker> makers;
    if (isWayland())
        makers.push_back({QStringLiteral("the Wayland compositor"),
                          [](std::chrono::seconds rest) { return std::make_unique<WaylandRest>(rest); }});
    else
        makers.push_back({QStringLiteral("the X server"),
                          [](std::chrono::seconds rest) { return std::make_unique<X11Rest>(rest); }});
    makers.push_back({QStringLiteral("GNOME"), [](std::chrono::seconds rest) {
                          return std::make_unique<MutterRest>(QDBusConnection::sessionBus(), rest);
                      }});
    return makers;
}

std::vector<Named> fullScreenSources()
{
    std::vector<Named> sources;
    if (isWayland())
        sources.push_back({QStringLiteral("the Wayland compositor"), std::make_unique<WaylandFullScreen>()});
    else
        sources.push_back({QStringLiteral("the window manager"), std::make_unique<X11FullScreen>()});
    return sources;
}

std::vector<Named> lockSources()
{
    std::vector<Named> sources;
    sources.push_back({QStringLiteral("logind"), std::make_unique<LogindLock>(QDBusConnection::systemBus())});
    for (const char *const desktop : {"freedesktop", "gnome", "cinnamon", "mate", "xfce"}) {
        const QString name = QStringLiteral("org.%1.ScreenSaver").arg(QLatin1String(desktop));
        sources.push_back({name, std::make_unique<ScreenSaverLock>(QDBusConnection::sessionBus(), name)});
    }
    return sources;
}

std::vector<std::reference_wrapper<FactSource>> referencesTo(const std::vector<Named> &sources)
{
    std::vector<std::reference_wrapper<FactSource>> references;
    references.reserve(sources.size());
    for (const Named &each : sources)
        references.emplace_back(*each.source);
    return references;
}

std::vector<RestSources::Maker> withoutNames(const std::vector<NamedMaker> &makers)
{
    std::vector<RestSources::Maker> all;
    all.reserve(makers.size());
    for (const NamedMaker &each : makers)
        all.push_back(each.make);
    return all;
}

/// The names of those that tell something.
QStringList answering(const std::vector<Named> &sources)
{
    std::vector<Fact> facts(sources.size(), Fact::unknown);
    QEventLoop loop;
    std::vector<Cancellable> watches;
    watches.reserve(sources.size());
    for (std::size_t place = 0; place < sources.size(); ++place)
        watches.push_back(sources[place].source->watch([&facts, &loop, place](Fact fact) {
            facts[place] = fact;
            if (std::ranges::find(facts, Fact::unknown) == facts.end())
                loop.quit();
        }));
    QTimer::singleShot(2s, &loop, &QEventLoop::quit);
    if (!sources.empty())
        loop.exec();
    QStringList names;
    for (std::size_t place = 0; place < sources.size(); ++place) {
        if (facts[place] == Fact::no || facts[place] == Fact::yes)
            names << sources[place].name;
    }
    return names;
}

Finding find(const QString &part, const std::vector<Named> &sources, const QString &loss, const QString &advice)
{
    const QStringList names = answering(sources);
    if (names.isEmpty())
        return {part, Finding::Mark::lacking, QStringLiteral("nothing here tells, so ") + loss, advice};
    return {part, Finding::Mark::there, QStringLiteral("told by ") + names.join(QStringLiteral(" and ")), {}};
}

}

LinuxSurroundings::LinuxSurroundings()
    : m_fullScreenSources(fullScreenSources())
    , m_lockSources(lockSources())
    , m_fullScreen(referencesTo(m_fullScreenSources))
    , m_lock(referencesTo(m_lockSources))
    , m_idle(withoutNames(restMakers()))
{
}

Findings LinuxSurroundings::findings()
{
    const std::vector<NamedMaker> makers = restMakers();
    std::vector<Named> rest;
    rest.reserve(makers.size());
    for (const NamedMaker &maker : makers)
        rest.push_back({maker.name, maker.make(3s)});
    return {find(QStringLiteral("away"), rest, QStringLiteral("a phase goes on while you are away"),
                 QStringLiteral("Pause it yourself, or use a desktop that tells when keys and pointer rest")),
            find(QStringLiteral("full screen"), fullScreenSources(),
                 QStringLiteral("breaks come over full-screen windows"),
                 QStringLiteral("Use a window manager that says which window is active; few Wayland desktops do")),
            find(QStringLiteral("screen lock"), lockSources(), QStringLiteral("a locked screen does not pause a phase"),
                 QStringLiteral("Install systemd-logind or elogind, and a screen locker that tells it"))};
}

}
