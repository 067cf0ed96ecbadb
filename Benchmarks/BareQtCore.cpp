// The yardstick for whole processes: Qt's core library, an event loop, nothing else.

#include <QtCore/QCoreApplication>

/// With an argument it ends at once, to measure a command; without one it stays, to measure an idle application.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return argc > 1 ? 0 : QCoreApplication::exec();
}
