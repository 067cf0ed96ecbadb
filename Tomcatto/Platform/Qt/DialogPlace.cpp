#include "Platform/Qt/DialogPlace.h"

#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace tomcatto {

void DialogPlace::show(QWidget &dialog) const
{
    dialog.winId();
    // Only an X server lets one client name a window of another.
    const quint64 behind = QGuiApplication::platformName() == QLatin1String("xcb") ? m_behind() : 0;
    if (QWindow *const window = behind == 0 ? nullptr : QWindow::fromWinId(behind)) {
        QObject::connect(&dialog, &QObject::destroyed, window, &QObject::deleteLater);
        dialog.windowHandle()->setTransientParent(window);
    }
    dialog.show();
    dialog.raise();
    m_windowSystem.activate(*dialog.windowHandle());
}

}
