#include "App/DesktopApplication.h"
#include "App/TerminalApplication.h"
#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/DisplayProbe.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Posix/StandardDescriptors.h"
#include "Platform/X11/DisplayAccess.h"

#include <optional>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

namespace {

using namespace tomcatto;

/// The application where no display lets it in. Commands need none either.
int runInTerminal(int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    ProgramStart program;
    return program.run(QCoreApplication::arguments().mid(1), [&program](const Invocation &invocation) {
        Logger(QStringLiteral("main")).error(QStringLiteral("no display can be used, so the terminal takes over"));
        return TerminalApplication(invocation, program).run();
    });
}

/// The toolkit's input method for compositors crashes where there is no keyboard; another one does without.
void chooseInputMethod()
{
    if (!qEnvironmentVariableIsSet("QT_IM_MODULE") && DisplayProbe().isWaylandWithoutSeat())
        qputenv("QT_IM_MODULE", "compose");
}

}

int main(int argc, char **argv)
{
    openMissingStandardDescriptors();
    useOneAllocatorArena();
    std::optional<DisplayAccess> access(std::in_place);
    if (!access->isGranted())
        return runInTerminal(argc, argv);
    chooseInputMethod();
    const QApplication application(argc, argv);
    access.reset();
    QCoreApplication::setApplicationName(productName);
    QGuiApplication::setDesktopFileName(applicationIdentifier);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tomcatto/app-icon.svg")));
    ProgramStart program;
    return program.run(QCoreApplication::arguments().mid(1), [&program](const Invocation &invocation) {
        return DesktopApplication(invocation, program).run();
    });
}
