// The yardstick for the desktop program: Qt's widgets, an icon in the tray with a menu of one line, nothing else.

#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSystemTrayIcon>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QPixmap picture(22, 22);
    picture.fill(Qt::white);
    QMenu menu;
    menu.addAction(QStringLiteral("Quit"), &application, &QCoreApplication::quit);
    QSystemTrayIcon icon{QIcon(picture)};
    icon.setContextMenu(&menu);
    icon.show();
    return QApplication::exec();
}
