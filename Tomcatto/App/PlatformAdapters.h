#pragma once

#include "Composition/PlatformServices.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Freedesktop/LogindWorkspacePower.h"
#include "Platform/Linux/SystemMonotonicClock.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/FileBookmarks.h"
#include "Platform/Posix/SystemWallClock.h"
#include "Platform/Qt/ArgumentDomain.h"
#include "Platform/Qt/JsonFileUserDefaults.h"
#include "Platform/Qt/LoadedStillFrame.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/RandomIdentifierSource.h"

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
};

}
