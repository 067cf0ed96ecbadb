#include "App/DesktopApplication.h"
#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/StandardDescriptors.h"

#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    using namespace tomcatto;
    openMissingStandardDescriptors();
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    QGuiApplication::setDesktopFileName(applicationIdentifier);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tomcatto/app-icon.svg")));
    ProgramStart program;
    return program.run(QCoreApplication::arguments().mid(1), [&program](const Invocation &invocation) {
        return DesktopApplication(invocation, program).run();
    });
}
