#pragma once

#include "Platform/Ports/StatusItem.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QMenu;
class QWidget;

namespace tomcatto {

/// The item's menu as a popup, made when it is shown and gone when it closes; meanwhile it follows what it is given.
/// Main thread only.
class TrayMenuPopup final : public QObject
{
    Q_OBJECT

public:
    void setMenu(const TrayMenu &menu);
    /// Shows the menu at a place of the screens, in logical pixels. @param owner the window it belongs to; may be null.
    void popUp(QPoint place, QWidget *owner);

Q_SIGNALS:
    void chosen(const tomcatto::TrayMenuCommand &command);

private:
    void fill();

    TrayMenu m_menu;
    QPointer<QMenu> m_popup;
};

}
