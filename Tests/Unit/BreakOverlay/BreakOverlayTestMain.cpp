#include <gmock/gmock.h>
#include <QtGui/QGuiApplication>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
