#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/FileWatch.h"
#include "Platform/Ports/InstanceLock.h"
#include "Platform/Ports/LocalSockets.h"
#include "Platform/Ports/MonotonicClock.h"
#include "Platform/Ports/ProcessSignals.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Ports/WallClock.h"

#include <memory>

class QWindow;

namespace tomcatto {

/// The desktop as a widget's window meets it. Main thread only.
class WidgetDesktop
{
public:
    virtual ~WidgetDesktop() = default;

    /// Puts a window among what lies on the desktop, below all others; asked at each showing.
    virtual void putOnDesktop(QWindow &window, bool isEverywhere) = 0;
    /// Whether windows lie where and in which layer they want; otherwise it is an ordinary one.
    [[nodiscard]] virtual bool canPlaceWindows() const = 0;
    /// Whether translucent parts of windows let through what is behind them. May wait for the server.
    [[nodiscard]] virtual bool isComposited() const = 0;
    /// Whether the desktop prefers dark windows.
    [[nodiscard]] virtual bool isDark() const = 0;
    /// Calls `changed` when the desktop prefers another look.
    [[nodiscard]] virtual Cancellable onLookChanged(std::function<void()> changed) = 0;
};

/// What a widget stands on. It has no part in the application: neither its defaults nor its socket.
struct WidgetPorts
{
    /// Owns everything below, which lives no longer than the application object.
    std::shared_ptr<const void> adapters;
    LogSink log;
    /// The file to show; empty where it has no place.
    QString snapshotFile;
    /// Where one widget hears that another one was asked for.
    QString socket;
    InstanceLock &lock;
    LocalSockets &sockets;
    /// The widget's own.
    UserDefaults &settings;
    const MonotonicClock &monotonicClock;
    WallClock &wallClock;
    FileWatch &fileWatch;
    ProcessSignals &processSignals;
    WidgetDesktop &desktop;
};

/// One platform, as the widget's program takes it. Main thread only.
class WidgetPlatform
{
public:
    virtual ~WidgetPlatform() = default;

    /// Whether the toolkit would get to a display. Asked before its application object is made.
    [[nodiscard]] virtual bool opensDisplay() = 0;
    /// Builds what the widget needs, once. Needs the toolkit's application object.
    [[nodiscard]] virtual WidgetPorts ports() = 0;
};

/// Makes the one that this build is for and prepares the process. Called first of all in `main`.
[[nodiscard]] std::unique_ptr<WidgetPlatform> makeWidgetPlatform();

}
