#pragma once

#include "Platform/Freedesktop/StatusNotifierTypes.h"
#include "Platform/Ports/StatusItem.h"

#include <functional>
#include <QtCore/QObject>
#include <QtCore/QStringList>

namespace tomcatto {

/// The item's menu for trays that draw menus themselves: one level of entries under the root 0. Entries keep their ids
/// as long as they mean the same, and no id ever means another thing: a click on a menu drawn a moment ago hits the
/// command that was seen, or none. The names and signatures are those of the protocol. Main thread only.
class TrayMenuService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT FINAL)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT FINAL)
    Q_PROPERTY(QString Status READ status CONSTANT FINAL)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT FINAL)

public:
    /// @param onChosen is called with the command of an entry that was clicked. It is not a signal, because the bus's
    /// library looks at every signal of an object that it shows and complains of types that it does not know.
    explicit TrayMenuService(std::function<void(const TrayMenuCommand &)> onChosen);

    /// Replaces the menu and announces it when it differs.
    void setMenu(const TrayMenu &menu);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

    // An empty list of names stands for all properties; a depth of 0 leaves the children out.
    Q_SCRIPTABLE uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                                tomcatto::MenuLayoutItem &layout);
    Q_SCRIPTABLE tomcatto::MenuItemPropertiesList GetGroupProperties(const QList<int> &ids,
                                                                     const QStringList &propertyNames);
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString &name);
    Q_SCRIPTABLE void Event(int id, const QString &eventId, const QDBusVariant &data, uint timestamp);
    // Written out: the bus's library finds the types of parameters by their names, and would leave the method out.
    Q_SCRIPTABLE QList<int> EventGroup(const QList<tomcatto::MenuEvent> &events);
    Q_SCRIPTABLE bool AboutToShow(int id);
    Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

Q_SIGNALS:
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);

private:
    [[nodiscard]] QVariantMap propertiesOf(int id) const;
    /// The id that the command has now, or a fresh one.
    [[nodiscard]] int idOf(const TrayMenuCommand &command);

    std::function<void(const TrayMenuCommand &)> m_onChosen;
    /// Entries by id, in the menu's order.
    QList<std::pair<int, TrayMenuEntry>> m_entries;
    TrayMenu m_menu;
    uint m_revision = 1;
    /// Below are separators, from 1.
    int m_nextId = 1000;
};

}
