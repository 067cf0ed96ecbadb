#include "App/ProgramStart.h"

#include "Foundation/FatalError.h"
#include "Platform/Qt/JsonFileUserDefaults.h"

#include <cerrno>
#include <cstdio>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace tomcatto {

namespace {

PrintOutcome printLine(std::FILE *file, const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0)
        return PrintOutcome::printed;
    return errno == EPIPE ? PrintOutcome::nobodyReads : PrintOutcome::failed;
}

PrintOutcome printOutput(const QString &line)
{
    const PrintOutcome outcome = printLine(stdout, line);
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

}

ProgramStart::ProgramStart()
    : m_instanceLock(m_directories.instanceLockFile(), m_directories.fallbackInstanceLockFile())
    // Commands ask for the time alone, which takes no bus.
    , m_wallClock(QDBusConnection(QString()))
    , m_bookmarks(QDir::homePath())
    , m_stillFrame(LoadedStillFrame::pluginPath(QCoreApplication::applicationDirPath()))
    , m_loginItem(AutostartLoginItem::programAtLogin())
    , m_runner(surroundings())
{
    setLogSink(m_log);
    qInstallMessageHandler(logQtMessage);
}

int ProgramStart::run(const QStringList &words, const std::function<int(const Invocation &)> &startApplication)
{
    const auto invocation = parseCommandLine(words);
    if (!invocation) {
        printLine(stderr, QStringLiteral("tomcatto: %1. See `tomcatto --help`.").arg(invocation.error()));
        return static_cast<int>(ExitStatus::usage);
    }
    m_log.copyToStandardError(invocation->isVerbose ? StandardErrorCopy::everything : StandardErrorCopy::errors);
    if (invocation->action == Invocation::Action::application)
        return startApplication(*invocation);
    return static_cast<int>(m_runner.run(*invocation));
}

int ProgramStart::runAlone(const std::function<int()> &application)
{
    // Taken before anything is built, so that two starts at one moment cannot recover one marker twice.
    const auto takeLock = [this] { return m_instanceLock.tryTake() != InstanceLockResult::held; };
    if (const auto status = m_runner.becomeApplication(takeLock))
        return static_cast<int>(*status);
    const int status = application();
    m_instanceLock.release();
    return status;
}

CommandSurroundings ProgramStart::surroundings()
{
    return {
        m_localSockets,
        [this] { return m_directories.reachableControlSockets(m_instanceLock.announced()); },
        m_directories.applicationSupport(),
        m_instanceLock,
        m_wallClock,
        m_identifiers,
        m_bookmarks,
        m_stillFrame,
        m_loginItem,
        [this](bool isReadOnly) {
            return std::make_unique<JsonFileUserDefaults>(m_directories.userDefaultsFile(),
                                                          isReadOnly ? JsonFileUserDefaults::Access::readOnly
                                                                     : JsonFileUserDefaults::Access::readWrite);
        },
        printOutput,
        [](const QString &line) { printLine(stderr, QStringLiteral("tomcatto: ") + line); },
    };
}

}
