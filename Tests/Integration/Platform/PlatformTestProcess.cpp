#include "Foundation/FatalError.h"
#include "Platform/Posix/FileInstanceLock.h"
#include "Platform/Posix/UnixProcessSignals.h"
#include "Platform/Posix/UnixTerminal.h"

#include <csignal>
#include <QtCore/QCoreApplication>
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

/// Writes the keys' codes until q; stops itself at p and fails at f.
int readKeys()
{
    UnixProcessSignals signals;
    UnixTerminal terminal(signals);
    const Cancellable keys = terminal.readKeys([&terminal](QChar key) {
        terminal.write(QStringLiteral("<key %1>\n").arg(int(key.unicode())));
        if (key == u'q')
            QCoreApplication::quit();
        if (key == u'p')
            ::raise(SIGSTOP);
        if (key == u'f')
            stopProcess(QStringLiteral("failed>"), storeFailureStatus);
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
    termios settings{};
    ::tcgetattr(STDIN_FILENO, &settings);
    ::signal(SIGTTOU, SIG_IGN);
    const pid_t job = ::fork();
    if (job == 0) {
        ::setpgid(0, 0);
        ::tcsetpgrp(STDIN_FILENO, ::getpid());
        ::signal(SIGTTOU, SIG_DFL);
        ::execl(program, program, "keys", nullptr);
    }
    int status = 0;
    while (::waitpid(job, &status, WUNTRACED) == job && WIFSTOPPED(status)) {
        ::tcsetpgrp(STDIN_FILENO, ::getpgrp());
        say("<stopped, " + echo());
        ::tcsetattr(STDIN_FILENO, TCSANOW, &settings);
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
    if (role == QLatin1String("keys"))
        return readKeys();
    if (role == QLatin1String("shell"))
        return superviseJob(argv[0]), 0;
    FileInstanceLock lock(path, path);
    say(lock.tryTake() == InstanceLockResult::taken ? "taken" : "not taken");
    return std::getchar();
}
