#include "Foundation/ApplicationIdentity.h"
#include "Platform/Dialogs/DialogDesk.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Sets/ViewSet.h"

#include <csignal>
#include <cstdio>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <string_view>

using namespace tomcatto;

/// Started by the program with the number of a socket; with `--check` only to see whether it starts.
int main(int argc, char **argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--check")
        return 0;
    const auto connection = argc == 2 ? companionsConnection(QByteArray(argv[1]).toInt()) : nullptr;
    if (!connection) {
        std::fputs("tomcatto-dialogs is started by Tomcatto itself.\n", stderr);
        return 2;
    }
    // For the program too, which ends this one.
    std::signal(SIGINT, SIG_IGN);
    prepareForViews();
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    QGuiApplication::setDesktopFileName(applicationIdentifier);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tomcatto/app-icon.svg")));
    // An answer has still to be sent.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const ViewSet set = makeViewSet();
    const DialogDesk desk(*connection, set.windowSystem, [] { QCoreApplication::quit(); });
    return QApplication::exec();
}
