#pragma once

#include "Platform/Ports/ApplicationPlatform.h"
#include "Platform/Posix/CompanionFindings.h"
#include "Platform/Posix/CompanionSounds.h"
#include "Platform/Posix/FileIdentity.h"
#include "Platform/Posix/SystemWallClock.h"
#include "Platform/Posix/UnixLocalSockets.h"

namespace tomcatto {

/// In what one system of the Unix kind differs from the next.
struct PosixDifferences
{
    /// The address of a journal that takes log lines; without one they go to syslog.
    QByteArray journalSocket;
    FileStatusReader fileStatus = tomcatto::fileStatus;
    UnixLocalSockets::PeerCheck isPeerTrusted = nullptr;
    SystemWallClock::TimerMaker makeDayTimer;
    std::function<std::unique_ptr<LoginItem>()> makeLoginItem;
    std::function<std::unique_ptr<MonotonicClock>()> makeMonotonicClock;
    std::function<std::unique_ptr<WorkspacePower>()> makeWorkspacePower;
    std::function<std::unique_ptr<WidgetCenter>()> makeWidgetCenter;
    std::function<std::unique_ptr<UserNotificationCenter>(MainRunLoop &)> makeNotificationCenter;
    std::function<std::unique_ptr<MessageBus>(MainRunLoop &)> makeMessageBus;
    /// Looks at what only this system has, beside what all of them share; asked before anything else that is looked at.
    std::function<Findings()> findOwn = [] { return Findings(); };
    /// Those of this system alone that look for themselves.
    std::vector<FindingCompanion> companions = {};
    /// The file of a sound that the system knows by name, where it has any; the application's own stand in.
    CompanionSounds::Finder findSystemSound = nullptr;
};

/// What all systems of the Unix kind share: their calls and the toolkit's, put together once.
class PosixPlatform final : public ApplicationPlatform
{
public:
    /// Prepares the process.
    explicit PosixPlatform(PosixDifferences differences);

    [[nodiscard]] ProgramPorts programPorts() const override;
    [[nodiscard]] ApplicationPorts applicationPorts(MainRunLoop &runLoop) const override;
    [[nodiscard]] QString becomeDesktop(const QStringList &arguments) const override;
    [[nodiscard]] QString becomeWidget(const QStringList &arguments) const override;

private:
    PosixDifferences m_differences;
};

}
