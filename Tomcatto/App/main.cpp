#include "App/TerminalApplication.h"
#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/DisplayProbe.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Posix/ProcessReplacement.h"
#include "Platform/Posix/StandardDescriptors.h"

#include <QtCore/QCoreApplication>

namespace {

using namespace tomcatto;

/// Lets the desktop application take this process over where there is a display. Returns where there is none, where
/// only the terminal is wanted or where the desktop application is not there.
void becomeDesktop(const Invocation &invocation)
{
    if (invocation.isTerminal)
        return;
    const auto desktop = ProcessReplacement::beside(QStringLiteral("tomcatto-desktop"));
    if (!desktop.isPossible() || !DisplayProbe().isReachable())
        return;
    Logger(QStringLiteral("main")).error(desktop.run(QCoreApplication::arguments().mid(1)));
}

}

int main(int argc, char **argv)
{
    openMissingStandardDescriptors();
    useOneAllocatorArena();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    ProgramStart program;
    return program.run(QCoreApplication::arguments().mid(1), [&program](const Invocation &invocation) {
        becomeDesktop(invocation);
        return TerminalApplication(invocation, program).run();
    });
}
