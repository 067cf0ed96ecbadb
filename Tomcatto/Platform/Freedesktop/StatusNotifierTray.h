#pragma once

#include "Foundation/Logger.h"
#include "Platform/Freedesktop/StatusNotifierItem.h"
#include "Platform/Freedesktop/TrayMenuService.h"
#include "Platform/Qt/TrayIcon.h"

#include <QtDBus/QDBusConnection>

namespace tomcatto {

/// The icon in trays that read it over D-Bus (StatusNotifierItem). It registers with the watcher whenever one comes,
/// and counts as hosted while the watcher says that somebody shows the icons.
class StatusNotifierTray final : public TrayIcon
{
    Q_OBJECT

public:
    /// @param sessionBus the session's bus; it may be without a connection, which means no tray. One tray to a
    /// connection.
    explicit StatusNotifierTray(const QDBusConnection &sessionBus);
    ~StatusNotifierTray() override;

    [[nodiscard]] bool isDecided() const override { return m_isDecided; }
    [[nodiscard]] bool isHosted() const override { return m_isHosted; }
    [[nodiscard]] std::vector<int> iconSizes() const override { return {22, 24, 48}; }
    /// The place of the last click: trays of this kind tell no other.
    [[nodiscard]] std::optional<QRect> geometry() const override { return m_place; }

    /// The protocol has no hidden icon that all trays know, and the icon shows wherever it can: this does nothing.
    void setShown(bool isShown) override;
    void show(const StatusItemPresentation &presentation) override;
    void setMenu(const TrayMenu &menu) override { m_menu.setMenu(menu); }

private Q_SLOTS:
    void askForHost();

private:
    void requestName();
    void registerItem();
    void followWatcher(const QString &newOwner);
    void decide(bool isHosted);

    QDBusConnection m_bus;
    const QString m_name;
    TrayMenuService m_menu;
    StatusNotifierItem m_item;
    const Logger m_logger{QStringLiteral("StatusNotifierTray")};
    /// Answers to earlier questions are dropped.
    quint64 m_question = 0;
    std::optional<QRect> m_place;
    bool m_isDecided = false;
    bool m_isHosted = false;
};

}
