#pragma once

#include "CommandLine/CommandRunner.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/FileBookmarks.h"
#include "Platform/Posix/FileInstanceLock.h"
#include "Platform/Posix/SystemLogSink.h"
#include "Platform/Posix/SystemWallClock.h"
#include "Platform/Posix/UnixLocalSockets.h"
#include "Platform/Qt/LoadedStillFrame.h"
#include "Platform/Qt/RandomIdentifierSource.h"

namespace tomcatto {

/// What both programs begin with: the log, the words of the command line, the places on disk, the instance lock and the
/// commands that need no application. Needs Qt's application object. Main thread only.
class ProgramStart final
{
public:
    /// Makes the log and Qt's messages go to the system's log.
    ProgramStart();

    ProgramStart(const ProgramStart &) = delete;
    ProgramStart &operator=(const ProgramStart &) = delete;

    /// Carries out a command, or starts the application by `startApplication`. @return the exit status
    [[nodiscard]] int run(const QStringList &words, const std::function<int(const Invocation &)> &startApplication);

    /// Runs `application` as the only one, under the instance lock; tells the one that runs already where there is one.
    /// @return the exit status
    [[nodiscard]] int runAlone(const std::function<int()> &application);

    [[nodiscard]] const ApplicationDirectories &directories() const noexcept { return m_directories; }
    [[nodiscard]] InstanceLock &instanceLock() noexcept { return m_instanceLock; }
    [[nodiscard]] LocalSockets &localSockets() noexcept { return m_localSockets; }
    [[nodiscard]] const CommandRunner &runner() const noexcept { return m_runner; }
    [[nodiscard]] const SystemLogSink &log() const noexcept { return m_log; }

private:
    [[nodiscard]] CommandSurroundings surroundings();

    SystemLogSink m_log;
    ApplicationDirectories m_directories;
    FileInstanceLock m_instanceLock;
    UnixLocalSockets m_localSockets;
    SystemWallClock m_wallClock;
    RandomIdentifierSource m_identifiers;
    FileBookmarks m_bookmarks;
    LoadedStillFrame m_stillFrame;
    AutostartLoginItem m_loginItem;
    CommandRunner m_runner;
};

}
