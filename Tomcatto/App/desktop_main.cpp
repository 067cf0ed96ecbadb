#include "App/DesktopFrontEnd.h"
#include "App/Program.h"
#include "App/TerminalSurfaces.h"
#include "Foundation/ApplicationIdentity.h"

#include <cstdio>
#include <QtGui/QGuiApplication>
#include <string_view>

using namespace tomcatto;

namespace {

/// The application where no display lets it in. Commands need none either.
int runInTerminal(const ApplicationPlatform &platform, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Program program(platform);
    return program.run([&program](const Invocation &invocation) {
        Logger(QStringLiteral("main")).error(QStringLiteral("no display can be used, so the terminal takes over"));
        return program.runApplication(invocation, terminalFrontEnd());
    });
}

/// For the command that tells what was found: in a process of its own, which may hang.
int tellFindings(DesktopPlatform &desktop, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    for (const Finding &finding : desktop.findings())
        std::fputs(findingLine(finding).constData(), stdout);
    return 0;
}

}

int main(int argc, char **argv)
{
    const auto platform = makeApplicationPlatform();
    const auto desktop = makeDesktopPlatform();
    if (argc == 2 && std::string_view(argv[1]) == "--findings")
        return tellFindings(*desktop, argc, argv);
    if (!desktop->opensDisplay())
        return runInTerminal(*platform, argc, argv);
    const auto application = desktop->makeApplication(argc, argv);
    QGuiApplication::setDesktopFileName(applicationIdentifier);
    Program program(*platform);
    return program.run(
        [&](const Invocation &invocation) { return program.runApplication(invocation, desktopFrontEnd(*desktop)); });
}
