#include "App/TerminalApplication.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/FileInstanceLock.h"

#include <cstdio>
#include <QtCore/QCoreApplication>

namespace {

using namespace tomcatto;

bool printLine(std::FILE *file, const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file) ==
               static_cast<std::size_t>(bytes.size()) &&
           std::fflush(file) == 0;
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
        return logger.fault(message);
    }
}

}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    const SystemLogSink log;
    setLogSink(log);
    qInstallMessageHandler(logQtMessage);

    const auto invocation = parseCommandLine(QCoreApplication::arguments().mid(1));
    if (!invocation) {
        printLine(stderr, QStringLiteral("tomcatto: %1. See `tomcatto --help`.").arg(invocation.error()));
        return static_cast<int>(ExitStatus::usage);
    }
    const ApplicationDirectories directories;
    FileInstanceLock instanceLock(directories.instanceLockFile(), directories.fallbackInstanceLockFile());
    // Commands ask for the time alone, which takes no bus.
    SystemWallClock wallClock{QDBusConnection(QString())};
    const CommandRunner runner({
        directories.controlSocket(),
        directories.applicationSupport(),
        instanceLock,
        wallClock,
        [&directories](bool isReadOnly) {
            return std::make_unique<JsonFileUserDefaults>(directories.userDefaultsFile(),
                                                          isReadOnly ? JsonFileUserDefaults::Access::readOnly
                                                                     : JsonFileUserDefaults::Access::readWrite);
        },
        [](const QString &line) { return printLine(stdout, line); },
        [](const QString &line) { printLine(stderr, QStringLiteral("tomcatto: ") + line); },
    });
    if (invocation->action != Invocation::Action::application) {
        log.setStandardErrorLevel(LogLevel::error);
        return static_cast<int>(runner.run(*invocation));
    }
    return TerminalApplication(*invocation, directories, instanceLock, runner, log).run();
}
