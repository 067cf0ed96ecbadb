#include "Platform/Posix/CompanionProgram.h"

#include "Platform/Posix/DescriptorFlags.h"
#include "Platform/Posix/SharedMemory.h"
#include "Platform/Posix/UnixLocalConnection.h"

#include <array>
#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QProcess>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace tomcatto {
namespace {

/// Processes that were told to end.
QList<QPointer<QProcess>> &ending()
{
    static QList<QPointer<QProcess>> all;
    return all;
}

/// One that hangs in a disk keeps nobody from quitting.
void waitForEnding()
{
    const QDeadlineTimer deadline(std::chrono::seconds(2));
    for (const QPointer<QProcess> &process : std::exchange(ending(), {})) {
        if (process && process->waitForFinished(static_cast<int>(deadline.remainingTime())))
            delete process.data();
    }
}

}

QString companionProgram(const QString &name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + u'/' + name;
    return QFile::exists(beside) ? beside : folder + QStringLiteral("/../" TOMCATTO_LIBRARY_FOLDER "/tomcatto/") + name;
}

QProcessEnvironment environmentOfWindows()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // A session would begin the process anew, and desktops know windows by the program's name.
    environment.remove(QStringLiteral("SESSION_MANAGER"));
    environment.insert(QStringLiteral("RESOURCE_NAME"), QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    return environment;
}

std::unique_ptr<LocalConnection> startConnected(QProcess &process, const QString &program)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0)
        return nullptr;
    auto connection = companionsConnection(ends[0]);
    const int theirs = closedOnReplacement(ends[1]);
    process.setChildProcessModifier([theirs] { handOn(theirs); });
    process.start(program, {QString::number(theirs)}, QIODevice::ReadOnly);
    ::close(theirs);
    return connection;
}

std::unique_ptr<LocalConnection> companionsConnection(int descriptor)
{
    if (!stopWaiting(closedOnReplacement(descriptor)))
        return nullptr;
    return std::make_unique<UnixLocalConnection>(descriptor);
}

void endCompanion(QProcess *process)
{
    if (process->state() == QProcess::NotRunning) {
        delete process;
        return;
    }
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
    if (ending().isEmpty())
        qAddPostRoutine(waitForEnding);
    ending().removeAll(nullptr);
    ending().append(process);
}

}
