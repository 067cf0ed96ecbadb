#pragma once

#include "Localization/LocalizedStrings.h"
#include "MainWindow/DesktopCapabilities.h"
#include "Platform/Ports/SystemSettings.h"
#include "QuillbayKit/NotificationAuthorization.h"
#include "SystemIntegration/LaunchAtLoginService.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The permissions page: what the system allows and what this desktop can do, in plain words. Main thread only.
class PermissionsPageViewModel final : public QObject
{
    Q_OBJECT
    /// Rows: id, title, help, isProblem (the help tells of one), state, isGood, button (its text; empty for none),
    /// name.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed FINAL)

public:
    PermissionsPageViewModel(const PomodoroSettings &settings, LaunchAtLoginService &launchAtLogin,
                             quillbay::NotificationAuthorization &authorization, SystemSettings &systemSettings,
                             const LocalizedStrings &strings, QObject *parent = nullptr);

    [[nodiscard]] QVariantList rows() const;

    /// What the application found out about the desktop.
    void setCapabilities(const DesktopCapabilities &capabilities);

    /// Presses the button of a row, by the row's id.
    Q_INVOKABLE void act(const QString &id);
    /// The page came into view.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void changed();
    /// The user wants the desktop to be asked for shortcuts from anywhere.
    void hotKeysRequested();
    /// The user wants to go to the general page.
    void generalRequested();
    /// The user wants to see a notification.
    void testNotificationRequested();

private:
    struct Row;
    [[nodiscard]] static Row unavailable(const QString &id);
    [[nodiscard]] QVariantMap makeRow(const Row &row) const;
    [[nodiscard]] Row notifications() const;
    [[nodiscard]] Row tray() const;
    [[nodiscard]] Row overlay() const;
    [[nodiscard]] Row hotKeys() const;
    [[nodiscard]] Row launchAtLogin() const;
    void requestNotifications();

    const PomodoroSettings &m_settings;
    LaunchAtLoginService &m_launchAtLogin;
    quillbay::NotificationAuthorization &m_authorization;
    SystemSettings &m_systemSettings;
    const LocalizedStrings &m_strings;
    DesktopCapabilities m_capabilities;
};

}
