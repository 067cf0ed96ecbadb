#include "App/Program.h"

#include "App/ApplicationControl.h"
#include "CommandLine/ArgumentDomain.h"
#include "Foundation/ApplicationIdentity.h"
#include "Foundation/FatalError.h"

#include <cerrno>
#include <cstdio>
#include <QtCore/QCoreApplication>

namespace tomcatto {

namespace {

PrintOutcome printBytes(std::FILE *file, const QByteArray &bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0)
        return PrintOutcome::printed;
    return errno == EPIPE ? PrintOutcome::nobodyReads : PrintOutcome::failed;
}

PrintOutcome printLine(std::FILE *file, const QString &line)
{
    return printBytes(file, line.toUtf8() + '\n');
}

PrintOutcome writeOutput(const QByteArray &bytes)
{
    const PrintOutcome outcome = printBytes(stdout, bytes);
    if (outcome == PrintOutcome::failed)
        printLine(stderr, QStringLiteral("tomcatto: standard output cannot be written: ") + qt_error_string(errno));
    return outcome;
}

void logQtMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    const Logger logger(QStringLiteral("Qt"));
    switch (type) {
    case QtDebugMsg:
        return logger.debug(message);
    case QtInfoMsg:
        return logger.info(message);
    case QtWarningMsg:
    case QtCriticalMsg:
        return logger.error(message);
    case QtFatalMsg:
        fatalError(message);
    }
}

CommandSurroundings surroundings(const ProgramPorts &ports)
{
    return {ports, writeOutput, [](const QString &line) { return writeOutput(line.toUtf8() + '\n'); },
            [](const QString &line) { printLine(stderr, QStringLiteral("tomcatto: ") + line); }};
}

}

Program::Program(const ApplicationPlatform &platform)
    : m_platform(platform)
    , m_ports(platform.programPorts())
    , m_runner(surroundings(m_ports))
{
    QCoreApplication::setApplicationName(productName);
    setLogSink(m_ports.log);
    qInstallMessageHandler(logQtMessage);
}

int Program::run(const std::function<int(const Invocation &)> &startApplication) const
{
    const auto invocation = parseCommandLine(QCoreApplication::arguments().mid(1));
    if (!invocation) {
        printLine(stderr, QStringLiteral("tomcatto: %1. See `tomcatto --help`.").arg(invocation.error()));
        return static_cast<int>(ExitStatus::usage);
    }
    m_ports.copyLogToStandardError(invocation->isVerbose ? StandardErrorCopy::everything : StandardErrorCopy::errors);
    if (invocation->action == Invocation::Action::application)
        return startApplication(*invocation);
    if (invocation->action == Invocation::Action::widget) {
        printLine(stderr, QStringLiteral("tomcatto: ") + m_platform.becomeWidget(invocation->widgetArguments));
        return static_cast<int>(ExitStatus::failed);
    }
    return static_cast<int>(m_runner.run(*invocation));
}

int Program::runApplication(const Invocation &invocation, const FrontEnd &frontEnd) const
{
    // Taken before anything is built, so that two starts at one moment cannot recover one marker twice.
    const auto takeLock = [this] { return m_ports.instanceLock.tryTake() != InstanceLockResult::held; };
    if (const auto status = m_runner.becomeApplication(takeLock))
        return static_cast<int>(*status);
    const int status = runHoldingLock(invocation, frontEnd);
    m_ports.instanceLock.release();
    return status;
}

int Program::runHoldingLock(const Invocation &invocation, const FrontEnd &frontEnd) const
{
    const ApplicationPorts ports = m_platform.applicationPorts(m_ports.runLoop);
    const auto storedDefaults = m_ports.openDefaults(false);
    ArgumentDomain defaults(*storedDefaults, invocation.argumentDomain);
    const auto desktop = frontEnd.makeServices ? std::optional(frontEnd.makeServices()) : std::nullopt;
    UserNotificationCenter &notificationCenter =
        desktop && desktop->notificationCenter ? *desktop->notificationCenter : ports.notificationCenter;
    AppDependencies dependencies({ports.monotonicClock, m_ports.wallClock, m_ports.runLoop, m_ports.fileWatch,
                                  m_ports.identifiers, defaults, ports.workspacePower, ports.widgetCenter,
                                  notificationCenter, ports.systemSounds, m_ports.bookmarks, m_ports.stillFrame,
                                  m_ports.loginItem, m_ports.httpSession, m_ports.applicationSupportDirectory,
                                  m_ports.widgetSnapshotFile, m_ports.bundledVideosDirectory,
                                  m_ports.remoteManifestUrl(), desktop ? &*desktop : nullptr});
    AppDelegate delegate(dependencies);
    const QString socket = m_ports.controlSocket();
    ApplicationControl control(dependencies, delegate, m_ports.localSockets, socket, [] { QCoreApplication::quit(); });
    control.answerActivation(ports.processSignals, frontEnd.runningMessage);
    if (const auto status = control.listen(m_runner))
        return static_cast<int>(*status);
    m_ports.instanceLock.announce(socket);
    const auto surfaces =
        frontEnd.makeSurfaces({invocation, ports, m_ports.copyLogToStandardError, dependencies, delegate, control});
    const Cancellable termination = ports.processSignals.onTerminationRequest([&control] { control.end(); });
    if (desktop)
        delegate.applicationWillFinishLaunching({invocation.isBackground, invocation.isUiTest});
    delegate.applicationDidFinishLaunching(*surfaces);
    control.offer(ports.messageBus);
    const int status = QCoreApplication::exec();
    control.withdraw();
    delegate.applicationWillTerminate();
    return status;
}

}
