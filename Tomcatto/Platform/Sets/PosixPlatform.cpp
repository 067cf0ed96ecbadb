#include "Platform/Sets/PosixPlatform.h"

#include "Platform/Network/CompanionHttpSession.h"
#include "Platform/Posix/ApplicationDirectories.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Posix/DisplayProbe.h"
#include "Platform/Posix/FileBookmarks.h"
#include "Platform/Posix/FileInstanceLock.h"
#include "Platform/Posix/ProcessReplacement.h"
#include "Platform/Posix/StandardDescriptors.h"
#include "Platform/Posix/SystemLogSink.h"
#include "Platform/Posix/UnixProcessSignals.h"
#include "Platform/Posix/UnixTerminal.h"
#include "Platform/Qt/InfoDictionary.h"
#include "Platform/Qt/JsonFileUserDefaults.h"
#include "Platform/Qt/LoadedClipStudio.h"
#include "Platform/Qt/LoadedStillFrame.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/RandomIdentifierSource.h"
#include "Platform/Qt/ToolkitFileWatch.h"
#include "Platform/Sets/PosixFindings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

namespace tomcatto {

namespace {

struct ProgramAdapters
{
    explicit ProgramAdapters(const PosixDifferences &differences)
        : log(differences.journalSocket)
        , localSockets(differences.isPeerTrusted)
        , wallClock(differences.makeDayTimer)
        , bookmarks(std::make_shared<const FileBookmarks>(QDir::homePath(), differences.fileStatus))
        , loginItem(differences.makeLoginItem())
    {
    }

    SystemLogSink log;
    ApplicationDirectories directories;
    FileInstanceLock instanceLock{directories.instanceLockFile(), directories.fallbackInstanceLockFile()};
    UnixLocalSockets localSockets;
    SystemWallClock wallClock;
    QtMainRunLoop runLoop;
    ToolkitFileWatch fileWatch;
    RandomIdentifierSource identifiers;
    std::shared_ptr<const FileBookmarks> bookmarks;
    LoadedClipStudio clipStudio{LoadedStillFrame::pluginPath(QCoreApplication::applicationDirPath())};
    LoadedStillFrame stillFrame{LoadedStillFrame::pluginPath(QCoreApplication::applicationDirPath())};
    std::unique_ptr<LoginItem> loginItem;
    CompanionHttpSession httpSession{companionProgram(QStringLiteral("tomcatto-fetch")), directories.urlCache(),
                                     runLoop};
};

/// By the system's own way, then among those that ship with the application.
CompanionSounds::Finder soundFinder(CompanionSounds::Finder findSystemSound)
{
    return [findSystemSound = std::move(findSystemSound)](const QString &name) {
        const QString found = findSystemSound ? findSystemSound(name) : QString();
        const QString own = ApplicationDirectories().bundled(QStringLiteral("Sounds/%1.wav").arg(name));
        return found.isEmpty() && QFile::exists(own) ? own : found;
    };
}

struct ApplicationAdapters
{
    ApplicationAdapters(const PosixDifferences &differences, MainRunLoop &runLoop)
        : monotonicClock(differences.makeMonotonicClock())
        , workspacePower(differences.makeWorkspacePower())
        , widgetCenter(differences.makeWidgetCenter())
        , notificationCenter(differences.makeNotificationCenter(runLoop))
        , messageBus(differences.makeMessageBus(runLoop))
        , systemSounds(companionProgram(QStringLiteral("tomcatto-sound")), soundFinder(differences.findSystemSound),
                       runLoop)
    {
    }

    std::unique_ptr<MonotonicClock> monotonicClock;
    std::unique_ptr<WorkspacePower> workspacePower;
    std::unique_ptr<WidgetCenter> widgetCenter;
    std::unique_ptr<UserNotificationCenter> notificationCenter;
    std::unique_ptr<MessageBus> messageBus;
    CompanionSounds systemSounds;
    UnixProcessSignals processSignals;
    UnixTerminal terminal{processSignals};
};

}

PosixPlatform::PosixPlatform(PosixDifferences differences)
    : m_differences(std::move(differences))
{
    openMissingStandardDescriptors();
    letWritesFail();
}

ProgramPorts PosixPlatform::programPorts() const
{
    const auto adapters = std::make_shared<ProgramAdapters>(m_differences);
    // Its ports hold it.
    ProgramAdapters &program = *adapters;
    return {
        adapters,
        program.log,
        [] {
            return OutputDisplay{columnsOf(1), takesColours(1), isTerminal(1)};
        },
        [&program](StandardErrorCopy copy) { program.log.copyToStandardError(copy); },
        program.directories.applicationSupport(),
        program.directories.widgetSnapshotFile(),
        program.directories.bundled(QStringLiteral("BundledVideos")),
        [&program] { return program.directories.controlSocket(); },
        [&program] { return program.directories.reachableControlSockets(program.instanceLock.announced()); },
        program.instanceLock,
        program.localSockets,
        program.wallClock,
        program.runLoop,
        program.fileWatch,
        program.identifiers,
        program.bookmarks,
        program.stillFrame,
        program.clipStudio,
        *program.loginItem,
        program.httpSession,
        [] { return InfoDictionary::text(QStringLiteral("RemoteManifestURL")); },
        [&program](bool isReadOnly) {
            return std::make_unique<JsonFileUserDefaults>(program.directories.userDefaultsFile(),
                                                          isReadOnly ? JsonFileUserDefaults::Access::readOnly
                                                                     : JsonFileUserDefaults::Access::readWrite);
        },
        [&program, findOwn = m_differences.findOwn, ownCompanions = m_differences.companions,
         findSound = soundFinder(m_differences.findSystemSound)] {
            return posixFindings(program.directories, findOwn, ownCompanions, findSound);
        },
    };
}

ApplicationPorts PosixPlatform::applicationPorts(MainRunLoop &runLoop) const
{
    const auto adapters = std::make_shared<ApplicationAdapters>(m_differences, runLoop);
    return {adapters,
            *adapters->monotonicClock,
            *adapters->workspacePower,
            *adapters->widgetCenter,
            *adapters->notificationCenter,
            *adapters->messageBus,
            adapters->systemSounds,
            adapters->processSignals,
            adapters->terminal};
}

QString PosixPlatform::becomeDesktop(const QStringList &arguments) const
{
    const auto desktop = ProcessReplacement::beside(QStringLiteral("tomcatto-desktop"));
    return desktop.isPossible() && DisplayProbe().isReachable() ? desktop.run(arguments) : QString();
}

QString PosixPlatform::becomeWidget(const QStringList &arguments) const
{
    const auto widget = ProcessReplacement::beside(QStringLiteral("tomcatto-widget"));
    if (!widget.isPossible())
        return QStringLiteral("The widget's program, tomcatto-widget, is not beside this one");
    // A platform of the toolkit's that needs no server is chosen by name.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !DisplayProbe().isReachable())
        return QStringLiteral("There is no display to show a widget on");
    return widget.run(arguments);
}

}
