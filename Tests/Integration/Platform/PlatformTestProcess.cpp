#include "Platform/Freedesktop/FileInstanceLock.h"
#include "Platform/Freedesktop/UnixProcessSignals.h"
#include "Platform/Freedesktop/UnixTerminal.h"
#include "Platform/Portable/JsonFileUserDefaults.h"

#include <csignal>
#include <ctime>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

using namespace tomcatto;

namespace {

void say(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

/// Sets values for ever; names each round that has reached the disk.
[[noreturn]] void setDefaults(const QString &path)
{
    JsonFileUserDefaults defaults(path);
    for (qint64 round = 1;; ++round) {
        for (int key = 0; key < 50; ++key)
            defaults.setValue(QStringLiteral("key %1").arg(key), round);
        defaults.synchronize();
        say(QByteArray::number(round));
    }
}

/// Writes the keys' codes until q. A hang-up ends it 300 ms later and leaves the processor time of these in a file.
int readKeys(const QString &hangUpFile)
{
    UnixProcessSignals signals;
    UnixTerminal terminal(signals);
    const Cancellable keys = terminal.readKeys([&terminal](QChar key) {
        terminal.write(QStringLiteral("<key %1>\n").arg(int(key.unicode())));
        if (key == u'q')
            QCoreApplication::quit();
    });
    const Cancellable end = signals.onTerminationRequest([&] {
        terminal.write(QStringLiteral("to nobody"));
        QTimer::singleShot(300, qApp, [hangUpFile, start = std::clock()] {
            QFile file(hangUpFile);
            if (file.open(QIODevice::WriteOnly))
                file.write(QByteArray::number(qint64{(std::clock() - start) * 1000 / CLOCKS_PER_SEC}));
            QCoreApplication::quit();
        });
    });
    terminal.write(
        QStringLiteral("<interactive %1, columns %2>\n").arg(terminal.isInteractive()).arg(terminal.columns()));
    return QCoreApplication::exec();
}

QByteArray echo()
{
    termios settings{};
    ::tcgetattr(STDIN_FILENO, &settings);
    return (settings.c_lflag & ECHO) != 0 ? "echo on>" : "echo off>";
}

/// A shell with one foreground job, which it continues whenever the job was stopped.
void superviseJob(char *program)
{
    ::signal(SIGTTOU, SIG_IGN);
    const pid_t job = ::fork();
    if (job == 0) {
        ::setpgid(0, 0);
        ::tcsetpgrp(STDIN_FILENO, ::getpid());
        ::signal(SIGTTOU, SIG_DFL);
        ::execl(program, program, "keys", "", nullptr);
    }
    int status = 0;
    while (::waitpid(job, &status, WUNTRACED) == job && WIFSTOPPED(status)) {
        ::tcsetpgrp(STDIN_FILENO, ::getpgrp());
        say("<stopped, " + echo());
        ::tcsetpgrp(STDIN_FILENO, job);
        ::kill(job, SIGCONT);
    }
    say("<ended " + QByteArray::number(WEXITSTATUS(status)) + ", " + echo());
}

}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString role = QCoreApplication::arguments().value(1);
    const QString path = QCoreApplication::arguments().value(2);
    if (role == QLatin1String("defaults"))
        setDefaults(path);
    if (role == QLatin1String("keys"))
        return readKeys(path);
    if (role == QLatin1String("shell"))
        return superviseJob(argv[0]), 0;
    FileInstanceLock lock(path, path);
    say(lock.tryTake() == InstanceLockResult::taken ? "taken" : "not taken");
    return std::getchar();
}
