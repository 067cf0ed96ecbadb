#pragma once

#include "Platform/Ports/WidgetPlatform.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/FileInstanceLock.h"
#include "Platform/Posix/SystemLogSink.h"
#include "Platform/Posix/SystemWallClock.h"
#include "Platform/Posix/UnixLocalSockets.h"
#include "Platform/Posix/UnixProcessSignals.h"
#include "Platform/Qt/JsonFileUserDefaults.h"
#include "Platform/Qt/ToolkitFileWatch.h"

namespace tomcatto {

/// The part of a widget's adapters that systems of the Unix kind share.
struct WidgetAdapters
{
    /// @param journalSocket empty where the system has no journal
    WidgetAdapters(const QByteArray &journalSocket, UnixLocalSockets::PeerCheck isPeerTrusted,
                   SystemWallClock::TimerMaker makeDayTimer)
        : log(journalSocket)
        , sockets(isPeerTrusted)
        , wallClock(std::move(makeDayTimer))
    {
        log.copyToStandardError(StandardErrorCopy::errors);
    }

    /// @param owner owns this and what the other arguments refer to
    [[nodiscard]] WidgetPorts ports(std::shared_ptr<const void> owner, const MonotonicClock &clock,
                                    WidgetDesktop &desktop)
    {
        return {std::move(owner),
                log,
                directories.widgetSnapshotFile(),
                directories.widgetSocket(),
                lock,
                sockets,
                settings,
                clock,
                wallClock,
                fileWatch,
                processSignals,
                desktop};
    }

    SystemLogSink log;
    ApplicationDirectories directories;
    FileInstanceLock lock{directories.widgetLockFile(), {}};
    UnixLocalSockets sockets;
    JsonFileUserDefaults settings{directories.widgetSettingsFile()};
    SystemWallClock wallClock;
    ToolkitFileWatch fileWatch;
    UnixProcessSignals processSignals;
};

}
