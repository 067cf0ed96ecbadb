#include "MenuBar/TrayMenuViewModel.h"

#include <algorithm>
#include <QtCore/QVariantMap>

namespace tomcatto {
namespace {

QString keyOf(const TrayMenuEntry &entry)
{
    if (!entry.command)
        return {};
    return QString::number(static_cast<int>(entry.command->action)) + u':' + entry.command->phaseToken;
}

QVariant lineOf(const TrayMenuEntry &entry)
{
    return QVariantMap{{QStringLiteral("key"), keyOf(entry)},
                       {QStringLiteral("text"), entry.text},
                       {QStringLiteral("isEnabled"), entry.command && entry.isEnabled},
                       {QStringLiteral("isToggle"), entry.isChecked.has_value()},
                       {QStringLiteral("isChecked"), entry.isChecked.value_or(false)}};
}

}

QVariantList TrayMenuViewModel::lines() const
{
    QVariantList lines;
    std::ranges::transform(m_menu.entries, std::back_inserter(lines), lineOf);
    return lines;
}

void TrayMenuViewModel::setMenu(const TrayMenu &menu)
{
    m_menu = menu;
    Q_EMIT linesChanged();
}

void TrayMenuViewModel::choose(const QString &key)
{
    const auto entry = std::ranges::find(m_menu.entries, key, keyOf);
    if (entry == m_menu.entries.end() || !entry->isEnabled)
        return;
    // A copy: the handler may end this.
    if (const auto command = entry->command)
        Q_EMIT chosen(*command);
}

}
