#include <gmock/gmock.h>
#ifdef QT_WIDGETS_LIB
// Where a room under test brings widgets, Qt Test takes the application for one with widgets.
#include <QtWidgets/QApplication>
using Application = QApplication;
#else
#include <QtGui/QGuiApplication>
using Application = QGuiApplication;
#endif

// For tests of what needs windows, but nobody to see them.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const Application application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
