#pragma once

#include "Platform/Ports/Bookmarks.h"
#include "Platform/Ports/DesktopServices.h"
#include "Platform/Ports/FileWatch.h"
#include "Platform/Ports/HttpSession.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/LoginItem.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/MonotonicClock.h"
#include "Platform/Ports/StillFrame.h"
#include "Platform/Ports/SystemSounds.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Ports/UserNotificationCenter.h"
#include "Platform/Ports/WallClock.h"
#include "Platform/Ports/WidgetCenter.h"
#include "Platform/Ports/WorkspacePower.h"

#include <memory>

namespace tomcatto {

/// What the platform gives the services. Everything outlives them.
struct PlatformServices
{
    const MonotonicClock &monotonicClock;
    WallClock &wallClock;
    MainRunLoop &runLoop;
    FileWatch &fileWatch;
    IdentifierSource &identifiers;
    UserDefaults &defaults;
    WorkspacePower &workspacePower;
    WidgetCenter &widgetCenter;
    UserNotificationCenter &notificationCenter;
    SystemSounds &systemSounds;
    /// Shared with threads that a disk may hold longer than anything lives.
    std::shared_ptr<const Bookmarks> bookmarks;
    const StillFrame &stillFrame;
    LoginItem &loginItem;
    HttpSession &httpSession;
    /// The user's application-support folder; empty if there is none.
    std::optional<QString> applicationSupportDirectory;
    /// The file that widgets read; empty if it has no place.
    QString widgetSnapshotFile;
    /// The folder with the videos that ship with the application; it may be missing.
    QString bundledVideosDirectory;
    /// The address of the remote library's manifest; not set without a library.
    std::optional<QString> remoteManifestUrl = std::nullopt;
    /// Missing without a desktop.
    const DesktopServices *desktop = nullptr;
};

}
