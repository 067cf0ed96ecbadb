#include "Platform/Freedesktop/TrayMenuService.h"

#include <algorithm>

namespace tomcatto {

namespace {

constexpr int rootId = 0;

/// The protocol takes an underscore for the mark of an access key.
QString label(QString text)
{
    return text.replace(u'_', QLatin1String("__"));
}

QVariantMap entryProperties(const TrayMenuEntry &entry)
{
    if (!entry.command)
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), label(entry.text)},
                           {QStringLiteral("enabled"), entry.isEnabled},
                           {QStringLiteral("visible"), true}};
    if (entry.isChecked) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), *entry.isChecked ? 1 : 0);
    }
    return properties;
}

QVariantMap selected(const QVariantMap &properties, const QStringList &names)
{
    if (names.isEmpty())
        return properties;
    QVariantMap result;
    for (const QString &name : names) {
        if (const auto found = properties.constFind(name); found != properties.constEnd())
            result.insert(name, *found);
    }
    return result;
}

}

TrayMenuService::TrayMenuService(std::function<void(const TrayMenuCommand &)> onChosen)
    : m_onChosen(std::move(onChosen))
{
    registerStatusNotifierTypes();
}

void TrayMenuService::setMenu(const TrayMenu &menu)
{
    if (m_menu == menu)
        return;
    m_menu = menu;
    QList<std::pair<int, TrayMenuEntry>> entries;
    int separator = rootId;
    for (const TrayMenuEntry &entry : menu.entries)
        entries.append({entry.command ? idOf(*entry.command) : ++separator, entry});
    m_entries = std::move(entries);
    Q_EMIT LayoutUpdated(++m_revision, rootId);
}

int TrayMenuService::idOf(const TrayMenuCommand &command)
{
    const auto found = std::ranges::find(m_entries, std::optional(command),
                                         [](const auto &numbered) { return numbered.second.command; });
    return found == m_entries.end() ? m_nextId++ : found->first;
}

QVariantMap TrayMenuService::propertiesOf(int id) const
{
    if (id == rootId)
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    const auto found = std::ranges::find(m_entries, id, &std::pair<int, TrayMenuEntry>::first);
    return found == m_entries.end() ? QVariantMap() : entryProperties(found->second);
}

uint TrayMenuService::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                                MenuLayoutItem &layout)
{
    layout.id = parentId;
    layout.properties = selected(propertiesOf(parentId), propertyNames);
    if (parentId == rootId && recursionDepth != 0) {
        for (const auto &[id, entry] : std::as_const(m_entries))
            layout.children.append({id, selected(entryProperties(entry), propertyNames), {}});
    }
    return m_revision;
}

MenuItemPropertiesList TrayMenuService::GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames)
{
    MenuItemPropertiesList result;
    const auto append = [&](int id) { result.append({id, selected(propertiesOf(id), propertyNames)}); };
    if (ids.isEmpty()) {
        append(rootId);
        for (const auto &[id, entry] : std::as_const(m_entries))
            append(id);
    }
    for (const int id : ids) {
        if (!propertiesOf(id).isEmpty())
            append(id);
    }
    return result;
}

QDBusVariant TrayMenuService::GetProperty(int id, const QString &name)
{
    // A variant may not be empty on the bus.
    return QDBusVariant(propertiesOf(id).value(name, QString()));
}

void TrayMenuService::Event(int id, const QString &eventId, const QDBusVariant & /*data*/, uint /*timestamp*/)
{
    if (eventId != QLatin1String("clicked"))
        return;
    const auto found = std::ranges::find(m_entries, id, &std::pair<int, TrayMenuEntry>::first);
    if (found == m_entries.end() || !found->second.isEnabled)
        return;
    // A copy: what is chosen may replace the entries.
    if (const auto command = found->second.command)
        m_onChosen(*command);
}

QList<int> TrayMenuService::EventGroup(const QList<MenuEvent> &events)
{
    QList<int> unknown;
    for (const MenuEvent &event : events) {
        if (propertiesOf(event.id).isEmpty())
            unknown.append(event.id);
        else
            Event(event.id, event.kind, event.data, event.timestamp);
    }
    return unknown;
}

bool TrayMenuService::AboutToShow(int /*id*/)
{
    // Every change has been announced already.
    return false;
}

QList<int> TrayMenuService::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors)
{
    std::ranges::copy_if(ids, std::back_inserter(idErrors), [this](int id) { return propertiesOf(id).isEmpty(); });
    return {};
}

}
