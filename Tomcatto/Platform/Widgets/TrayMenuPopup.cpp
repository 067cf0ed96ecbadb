#include "Platform/Widgets/TrayMenuPopup.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenu>

namespace tomcatto {

void TrayMenuPopup::popUp(QPoint place, QWidget *owner)
{
    auto *popup = new QMenu(owner);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    for (const TrayMenuEntry &entry : m_menu.entries) {
        if (!entry.action) {
            popup->addSeparator();
            continue;
        }
        // An ampersand would mark an access key.
        QAction *line = popup->addAction(QString(entry.text).replace(u'&', QLatin1String("&&")));
        line->setEnabled(entry.isEnabled);
        line->setCheckable(entry.isChecked.has_value());
        line->setChecked(entry.isChecked.value_or(false));
        connect(line, &QAction::triggered, this, [this, action = *entry.action] { Q_EMIT chosen(action); });
    }
    popup->popup(place);
}

}
