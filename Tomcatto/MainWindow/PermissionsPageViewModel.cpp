#include "MainWindow/PermissionsPageViewModel.h"

#include "MainWindow/NotificationTexts.h"

namespace tomcatto {

using quillbay::NotificationAuthorization;

/// One row by the last parts of its texts' keys.
struct PermissionsPageViewModel::Row
{
    QString id;
    QString help = QStringLiteral("help");
    QString state = {};
    bool isGood = false;
    bool isProblem = false;
    QString button = {};
    /// Takes the place of the text under the key `help`.
    QString helpText = {};
};

PermissionsPageViewModel::PermissionsPageViewModel(const PomodoroSettings &settings,
                                                   LaunchAtLoginService &launchAtLogin,
                                                   NotificationAuthorization &authorization,
                                                   SystemSettings &systemSettings, const LocalizedStrings &strings,
                                                   QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_launchAtLogin(launchAtLogin)
    , m_authorization(authorization)
    , m_systemSettings(systemSettings)
    , m_strings(strings)
{
    connect(&settings, &PomodoroSettings::changed, this, &PermissionsPageViewModel::changed);
    connect(&launchAtLogin, &LaunchAtLoginService::statusChanged, this, &PermissionsPageViewModel::changed);
    connect(&authorization, &NotificationAuthorization::changed, this, &PermissionsPageViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &PermissionsPageViewModel::changed);
}

QVariantList PermissionsPageViewModel::rows() const
{
    QVariantList list;
    for (const Row &row : {notifications(), tray(), overlay(), hotKeys(), launchAtLogin()})
        list.append(makeRow(row));
    // Elsewhere there is nothing to say about it.
    if (!m_capabilities.noticesSleep)
        list.append(makeRow(unavailable(QStringLiteral("sleep"))));
    return list;
}

PermissionsPageViewModel::Row PermissionsPageViewModel::unavailable(const QString &id)
{
    return {.id = id, .help = QStringLiteral("help_unavailable"), .state = QStringLiteral("unavailable")};
}

QVariantMap PermissionsPageViewModel::makeRow(const Row &row) const
{
    const QString key = QStringLiteral("window.permissions.%1.").arg(row.id);
    const QString title = m_strings.text(key + QStringLiteral("title"));
    const QString state = m_strings.text(QStringLiteral("window.permissions.state.") + row.state);
    const QString button =
        row.button.isEmpty() ? QString() : m_strings.text(QStringLiteral("window.permissions.button.") + row.button);
    return {{QStringLiteral("id"), row.id},
            {QStringLiteral("title"), title},
            {QStringLiteral("help"), row.helpText.isEmpty() ? m_strings.text(key + row.help) : row.helpText},
            {QStringLiteral("isProblem"), row.isProblem},
            {QStringLiteral("state"), state},
            {QStringLiteral("isGood"), row.isGood},
            {QStringLiteral("button"), button},
            {QStringLiteral("name"),
             m_strings.format(QStringLiteral("window.permissions.row.accessibility"), title, state)}};
}

PermissionsPageViewModel::Row PermissionsPageViewModel::notifications() const
{
    Row row{.id = QStringLiteral("notifications")};
    switch (m_authorization.permission()) {
    case NotificationPermission::notDetermined:
        row.state = QStringLiteral("not_asked");
        row.button = QStringLiteral("ask");
        break;
    case NotificationPermission::authorised:
        row.state = QStringLiteral("allowed");
        row.isGood = true;
        row.button = QStringLiteral("test");
        row.helpText = allowedNotificationsText(m_authorization, m_strings,
                                                QStringLiteral("window.permissions.notifications.help"));
        break;
    case NotificationPermission::denied:
        row.state = QStringLiteral("denied");
        row.button = QStringLiteral("open_settings");
        break;
    case NotificationPermission::unavailable:
        row = unavailable(row.id);
        row.isProblem = true;
        break;
    }
    return row;
}

PermissionsPageViewModel::Row PermissionsPageViewModel::tray() const
{
    Row row{.id = QStringLiteral("tray")};
    switch (m_capabilities.tray) {
    case DesktopSupport::full:
        row.state = QStringLiteral("works");
        row.isGood = true;
        if (!m_capabilities.placesPanel)
            row.help = QStringLiteral("help_panel_placement");
        break;
    case DesktopSupport::limited:
        row.state = QStringLiteral("limited");
        row.help = QStringLiteral("help_placement");
        break;
    case DesktopSupport::none:
        row.state = QStringLiteral("unavailable");
        row.help = QStringLiteral("help_missing");
        break;
    }
    return row;
}

PermissionsPageViewModel::Row PermissionsPageViewModel::overlay() const
{
    Row row{.id = QStringLiteral("overlay"), .state = QStringLiteral("works")};
    row.isGood = m_capabilities.overlay == DesktopSupport::full;
    if (!row.isGood) {
        row.state = QStringLiteral("limited");
        row.help = QStringLiteral("help_limited");
    }
    return row;
}

PermissionsPageViewModel::Row PermissionsPageViewModel::hotKeys() const
{
    Row row{.id = QStringLiteral("hotkeys")};
    switch (m_capabilities.hotKeys) {
    case HotKeySupport::works:
        row.state = QStringLiteral("works");
        row.isGood = true;
        break;
    case HotKeySupport::notAsked:
        row.state = QStringLiteral("not_asked");
        row.button = QStringLiteral("ask");
        break;
    case HotKeySupport::none:
        return unavailable(row.id);
    }
    return row;
}

PermissionsPageViewModel::Row PermissionsPageViewModel::launchAtLogin() const
{
    if (!m_capabilities.opensAtLogin)
        return unavailable(QStringLiteral("launch_at_login"));
    Row row{.id = QStringLiteral("launch_at_login"), .button = QStringLiteral("general")};
    row.isGood = m_settings.launchAtLogin();
    row.state = row.isGood ? QStringLiteral("on") : QStringLiteral("off");
    return row;
}

void PermissionsPageViewModel::setCapabilities(const DesktopCapabilities &capabilities)
{
    if (capabilities == m_capabilities)
        return;
    m_capabilities = capabilities;
    Q_EMIT changed();
}

void PermissionsPageViewModel::act(const QString &id)
{
    if (id == QLatin1StringView("launch_at_login"))
        Q_EMIT generalRequested();
    else if (id == QLatin1StringView("hotkeys"))
        Q_EMIT hotKeysRequested();
    else if (id == QLatin1StringView("notifications") && m_authorization.permission() == NotificationPermission::denied)
        m_systemSettings.openNotifications();
    else if (id == QLatin1StringView("notifications"))
        requestNotifications();
}

void PermissionsPageViewModel::requestNotifications()
{
    if (m_authorization.permission() == NotificationPermission::authorised)
        Q_EMIT testNotificationRequested();
    m_authorization.request();
}

void PermissionsPageViewModel::refresh()
{
    m_launchAtLogin.readStatus();
    m_authorization.refresh();
}

}
