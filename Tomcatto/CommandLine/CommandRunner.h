#pragma once

#include "CommandLine/Invocation.h"
#include "Control/ControlClient.h"
#include "Platform/Ports/Bookmarks.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/InstanceLock.h"
#include "Platform/Ports/StillFrame.h"
#include "Platform/Ports/WallClock.h"

namespace tomcatto {

/// What became of a line on standard output.
enum class PrintOutcome {
    printed,
    /// Its reader is gone, which is no fault.
    nobodyReads,
    failed,
};

/// What commands need of their surroundings.
struct CommandSurroundings
{
    LocalSockets &localSockets;
    /// Where the application may listen now, the likeliest place first.
    std::function<QStringList()> controlSockets;
    /// The user's application-support folder; nothing where there is none.
    std::optional<QString> applicationSupportDirectory;
    InstanceLock &instanceLock;
    WallClock &wallClock;
    IdentifierSource &identifiers;
    const Bookmarks &bookmarks;
    const StillFrame &stillFrame;
    /// Opens the user defaults, for reading only or for a change.
    std::function<std::unique_ptr<UserDefaults>(bool isReadOnly)> openDefaults;
    /// Write a line to standard output and standard error.
    std::function<PrintOutcome(const QString &line)> print;
    std::function<void(const QString &line)> printError;
};

/// Carries out the commands that are not the application itself: over the control socket where it runs, on the files
/// where that is enough. Recovers nothing. Blocking.
class CommandRunner final
{
public:
    explicit CommandRunner(CommandSurroundings surroundings);

    /// Runs any invocation but the application.
    [[nodiscard]] ExitStatus run(const Invocation &invocation) const;
    /// Makes this process the application, or tells the one that runs already that somebody started it again. While
    /// neither succeeds, because the other one is starting, ending or hanging or a command holds the lock for a moment,
    /// both are tried again for a few seconds.
    /// @param become tries without waiting. @return nothing when this process is the application; else the status to
    /// end with, `done` only where the other one has answered.
    [[nodiscard]] std::optional<ExitStatus> becomeApplication(const std::function<bool()> &become) const;

private:
    [[nodiscard]] ExitStatus runRemote(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus runStatus(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus runStats(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus listVideos() const;
    [[nodiscard]] ExitStatus listSettings() const;
    [[nodiscard]] ExitStatus getSetting(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus setSetting(const Invocation &invocation) const;
    [[nodiscard]] std::optional<ExitStatus> setSettingInFile(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus report(const ControlReply &reply) const;
    [[nodiscard]] ExitStatus print(const QString &text) const;
    void waitForEnd() const;

    CommandSurroundings m_surroundings;
    ControlClient m_client;
};

}
