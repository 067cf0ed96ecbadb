#include <gmock/gmock.h>
#include <QtCore/QProcess>
#include <QtWidgets/QApplication>

namespace {

/// Starts an X server that nobody sees and has the rest of the process use it.
bool startServer(QProcess &server)
{
    // It ends with this process, however this one ends.
    server.start(QStringLiteral("setpriv"),
                 QStringLiteral("--pdeathsig KILL Xvfb -displayfd 1 -noreset -r -screen 0 1280x800x24 -nolisten tcp")
                     .split(u' '));
    if (!server.waitForReadyRead())
        return false;
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    qputenv("QT_QPA_PLATFORM", "xcb");
    return true;
}

}

int main(int argc, char **argv)
{
    QProcess server;
    if (!startServer(server)) {
        std::fputs("Xvfb does not start\n", stderr);
        return 1;
    }
    // A bus of the surroundings must not lend the tests its tray or its portal.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    QProcess manager;
    manager.start(QStringLiteral("openbox"), {});
    int result = 1;
    {
        const QApplication application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        testing::InitGoogleMock(&argc, argv);
        result = RUN_ALL_TESTS();
    }
    for (QProcess *process : {&manager, &server}) {
        process->kill();
        process->waitForFinished();
    }
    return result;
}
