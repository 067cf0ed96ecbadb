#pragma once

#include "Composition/PlatformServices.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Freedesktop/FileBookmarks.h"
#include "Platform/Freedesktop/LogindWorkspacePower.h"
#include "Platform/Freedesktop/SystemMonotonicClock.h"
#include "Platform/Freedesktop/SystemWallClock.h"
#include "Platform/Media/LoadedStillFrame.h"
#include "Platform/Portable/ApplicationDirectories.h"
#include "Platform/Portable/ArgumentDomain.h"
#include "Platform/Portable/JsonFileUserDefaults.h"
#include "Platform/Portable/QtMainRunLoop.h"
#include "Platform/Portable/RandomIdentifierSource.h"

namespace tomcatto {

/// Builds and owns the adapters that every front end of the application stands on. Main thread only.
class PlatformAdapters final
{
public:
    /// @param argumentDomain values for this run by settings key.
    PlatformAdapters(const ApplicationDirectories &directories, std::map<QString, DefaultsValue> argumentDomain);

    /// The ports, as the services get them.
    [[nodiscard]] PlatformServices services();
    [[nodiscard]] QtMainRunLoop &runLoop() { return m_runLoop; }
    [[nodiscard]] WallClock &wallClock() { return m_wallClock; }

private:
    ApplicationDirectories m_directories;
    QtMainRunLoop m_runLoop;
    SystemMonotonicClock m_monotonicClock;
    SystemWallClock m_wallClock;
    RandomIdentifierSource m_identifiers;
    JsonFileUserDefaults m_defaultsFile;
    ArgumentDomain m_defaults;
    LogindWorkspacePower m_workspacePower;
    std::shared_ptr<const FileBookmarks> m_bookmarks;
    LoadedStillFrame m_stillFrame;
    AutostartLoginItem m_loginItem;
    Cancellable m_startOver;
};

}
