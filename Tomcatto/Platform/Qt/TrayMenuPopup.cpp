#include "Platform/Qt/TrayMenuPopup.h"

#include <algorithm>
#include <QtGui/QAction>
#include <QtWidgets/QMenu>

namespace tomcatto {

namespace {

/// What a line of the popup means; nothing for a separator.
std::optional<TrayMenuCommand> meaning(const QAction &line)
{
    return line.isSeparator() ? std::nullopt : std::optional(line.data().value<TrayMenuCommand>());
}

void removeObsolete(QMenu &popup, const TrayMenu &menu)
{
    const auto lines = popup.actions();
    for (QAction *line : lines) {
        if (std::ranges::find(menu.entries, meaning(*line), &TrayMenuEntry::command) == menu.entries.end())
            delete line;
    }
}

}

void TrayMenuPopup::setMenu(const TrayMenu &menu)
{
    m_menu = menu;
    if (m_popup)
        fill();
}

void TrayMenuPopup::popUp(QPoint place, QWidget *owner)
{
    m_popup = new QMenu(owner);
    m_popup->setAttribute(Qt::WA_DeleteOnClose);
    fill();
    m_popup->popup(place);
}

void TrayMenuPopup::fill()
{
    // A line that means another thing than before is another line: the press that was on its way to the old one must
    // not hit it.
    removeObsolete(*m_popup, m_menu);
    for (std::size_t index = 0; index < m_menu.entries.size(); ++index) {
        const TrayMenuEntry &entry = m_menu.entries[index];
        QAction *line = m_popup->actions().value(static_cast<qsizetype>(index));
        if (line == nullptr || meaning(*line) != entry.command) {
            auto *added = new QAction(m_popup);
            added->setSeparator(!entry.command);
            if (entry.command) {
                added->setData(QVariant::fromValue(*entry.command));
                connect(added, &QAction::triggered, this, [this, command = *entry.command] { Q_EMIT chosen(command); });
            }
            m_popup->insertAction(line, added);
            line = added;
        }
        // An ampersand would mark an access key.
        line->setText(QString(entry.text).replace(u'&', QLatin1String("&&")));
        line->setEnabled(entry.isEnabled);
        line->setCheckable(entry.isChecked.has_value());
        line->setChecked(entry.isChecked.value_or(false));
    }
    while (m_popup->actions().size() > static_cast<qsizetype>(m_menu.entries.size()))
        delete m_popup->actions().constLast();
}

}
