#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/Bookmarks.h"
#include "Platform/Ports/ClipStudio.h"
#include "Platform/Ports/FileWatch.h"
#include "Platform/Ports/Finding.h"
#include "Platform/Ports/HttpSession.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/InstanceLock.h"
#include "Platform/Ports/LocalSockets.h"
#include "Platform/Ports/LoginItem.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/MessageBus.h"
#include "Platform/Ports/MonotonicClock.h"
#include "Platform/Ports/ProcessSignals.h"
#include "Platform/Ports/StillFrame.h"
#include "Platform/Ports/SystemSounds.h"
#include "Platform/Ports/Terminal.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Ports/UserNotificationCenter.h"
#include "Platform/Ports/WallClock.h"
#include "Platform/Ports/WidgetCenter.h"
#include "Platform/Ports/WorkspacePower.h"

#include <memory>
#include <QtCore/QStringList>

namespace tomcatto {

/// What of the log goes to standard error as well.
enum class StandardErrorCopy {
    nothing,
    /// Lines of the level error. A fault is left out: the one who logs it ends the process and says why there.
    errors,
    everything,
};

/// How standard output shows text.
struct OutputDisplay
{
    int columns = 80;
    /// Whether escape sequences for colours are wanted; never where it is not a terminal.
    bool hasColours = false;
    /// Whether a line can be written over.
    bool isTerminal = false;
};

/// What every program stands on, one that only carries out a command included. Nothing here asks a bus but
/// `diagnose`.
struct ProgramPorts
{
    /// Owns everything below, which lives no longer than the application object.
    std::shared_ptr<const void> adapters;
    LogSink log;
    std::function<OutputDisplay()> outputDisplay;
    std::function<void(StandardErrorCopy)> copyLogToStandardError;
    /// The user's application-support folder; empty if there is none.
    std::optional<QString> applicationSupportDirectory;
    /// The file that widgets read; empty if it has no place.
    QString widgetSnapshotFile;
    /// The folder with the videos that ship with the application; it may be missing.
    QString bundledVideosDirectory;
    /// Where the application is to listen.
    std::function<QString()> controlSocket;
    /// Where it may listen now, the likeliest place first.
    std::function<QStringList()> controlSockets;
    InstanceLock &instanceLock;
    LocalSockets &localSockets;
    WallClock &wallClock;
    MainRunLoop &runLoop;
    FileWatch &fileWatch;
    IdentifierSource &identifiers;
    /// Shared with threads that a disk may hold longer than anything lives.
    std::shared_ptr<const Bookmarks> bookmarks;
    const StillFrame &stillFrame;
    const ClipStudio &clipStudio;
    LoginItem &loginItem;
    HttpSession &httpSession;
    /// The address of the remote library's manifest; not set without a library.
    std::function<std::optional<QString>()> remoteManifestUrl;
    /// Opens the user defaults, for reading only or for a change.
    std::function<std::unique_ptr<UserDefaults>(bool isReadOnly)> openDefaults;
    /// Looks at what the system gives the application: places on disk, buses, display, sound and the like. Takes some
    /// seconds at most, also where something hangs, and changes nothing.
    std::function<Findings()> diagnose;
};

/// What the running application needs besides.
struct ApplicationPorts
{
    /// As above.
    std::shared_ptr<const void> adapters;
    const MonotonicClock &monotonicClock;
    WorkspacePower &workspacePower;
    WidgetCenter &widgetCenter;
    UserNotificationCenter &notificationCenter;
    MessageBus &messageBus;
    SystemSounds &systemSounds;
    ProcessSignals &processSignals;
    Terminal &terminal;
};

/// One platform, as the programs take it: the maker of its adapters. A new platform is one more class of this kind, and
/// one more of `DesktopPlatform` where there are windows. Main thread only.
class ApplicationPlatform
{
public:
    virtual ~ApplicationPlatform() = default;

    /// Builds what every program needs, once. Needs Qt's application object, as all that follows.
    [[nodiscard]] virtual ProgramPorts programPorts() const = 0;
    /// Builds what the application needs, once; from then on the process's signals are its own.
    /// @param runLoop outlives the ports.
    [[nodiscard]] virtual ApplicationPorts applicationPorts(MainRunLoop &runLoop) const = 0;
    /// Lets the desktop's program, which lies beside the running one, take this process over where there is a display.
    /// Nothing is unwound. Called from the only thread.
    /// @return only where it does not: the reason; empty where there is no display or no such program.
    [[nodiscard]] virtual QString becomeDesktop(const QStringList &arguments) const = 0;
    /// The same with the widget's program. @return only where it does not: the reason.
    [[nodiscard]] virtual QString becomeWidget(const QStringList &arguments) const = 0;
};

/// Makes the platform that this build is for and prepares the process. Called first of all in `main`.
[[nodiscard]] std::unique_ptr<ApplicationPlatform> makeApplicationPlatform();

}
