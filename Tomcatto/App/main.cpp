#include "App/TerminalApplication.h"
#include "Foundation/ApplicationIdentity.h"

#include <QtCore/QCoreApplication>

int main(int argc, char **argv)
{
    using namespace tomcatto;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    ProgramStart program;
    return program.run(QCoreApplication::arguments().mid(1), [&program](const Invocation &invocation) {
        return TerminalApplication(invocation, program).run();
    });
}
