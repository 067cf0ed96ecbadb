#include "App/Program.h"
#include "App/TerminalSurfaces.h"

#include <QtCore/QCoreApplication>

using namespace tomcatto;

int main(int argc, char **argv)
{
    const auto platform = makeApplicationPlatform();
    const QCoreApplication application(argc, argv);
    Program program(*platform);
    return program.run([&](const Invocation &invocation) {
        // Where only the terminal is wanted, a display does not matter.
        const QString problem =
            invocation.isTerminal ? QString() : platform->becomeDesktop(QCoreApplication::arguments().mid(1));
        if (!problem.isEmpty())
            Logger(QStringLiteral("main")).error(problem);
        return program.runApplication(invocation, terminalFrontEnd());
    });
}
