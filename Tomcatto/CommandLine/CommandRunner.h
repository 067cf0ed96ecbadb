#pragma once

#include "CommandLine/FileCommands.h"
#include "CommandLine/HistoryReports.h"
#include "CommandLine/Invocation.h"
#include "Control/ControlClient.h"

namespace tomcatto {

/// Carries out the commands that are not the application itself: over the control socket where it runs, on the files
/// where that is enough. Recovers nothing. Blocking.
class CommandRunner final
{
public:
    explicit CommandRunner(CommandSurroundings surroundings);

    /// Runs any invocation but the application and the widget.
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
    [[nodiscard]] ExitStatus change(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus downloadVideo(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus restoreHistory(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus show(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus listShortcuts(const Invocation &invocation) const;
    [[nodiscard]] ControlReply read(const ControlRequest &request) const;
    [[nodiscard]] ControlReply change(const ControlRequest &request, std::chrono::milliseconds patience,
                                      const std::function<void(double)> &onProgress = {}) const;
    [[nodiscard]] ExitStatus publish(const Invocation &invocation) const;
    [[nodiscard]] ExitStatus report(const ControlReply &reply) const;
    [[nodiscard]] ExitStatus print(const QString &text) const;
    void waitForEnd() const;

    CommandSurroundings m_surroundings;
    ControlClient m_client;
    FileCommands m_files;
    HistoryReports m_reports;
};

}
