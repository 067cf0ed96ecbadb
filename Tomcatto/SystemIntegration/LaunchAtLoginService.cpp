#include "SystemIntegration/LaunchAtLoginService.h"

#include <QtCore/QPointer>

namespace tomcatto {

LaunchAtLoginService::LaunchAtLoginService(PomodoroSettings &settings, LoginItem &loginItem,
                                           std::optional<FailureAlert> failureAlert, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_loginItem(loginItem)
    , m_failureAlert(failureAlert)
{
    connect(&settings, &PomodoroSettings::changed, this, [this](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::launchAtLogin)
            settingChanged();
    });
}

void LaunchAtLoginService::readStatus()
{
    LoginItemStatus status = m_loginItem.status();
    if (status == LoginItemStatus::outdated && renew())
        status = m_loginItem.status();
    const bool isNew = status != m_status;
    m_status = status;
    m_isFollowing = true;
    if (const bool isOn = status == LoginItemStatus::enabled; isOn != m_settings.launchAtLogin())
        m_settings.setLaunchAtLogin(isOn);
    m_isFollowing = false;
    if (isNew)
        Q_EMIT statusChanged();
}

bool LaunchAtLoginService::renew()
{
    const auto result = m_loginItem.registerItem();
    if (result)
        m_logger.info(QStringLiteral("the login item started what is gone; now it starts this program"));
    else
        m_logger.error(QStringLiteral("launch-at-login register failed: %1").arg(result.error()));
    return result.has_value();
}

void LaunchAtLoginService::enable()
{
    apply(true);
}

void LaunchAtLoginService::disable()
{
    apply(false);
}

void LaunchAtLoginService::settingChanged()
{
    if (!m_isFollowing)
        apply(m_settings.launchAtLogin());
}

void LaunchAtLoginService::apply(bool isOn)
{
    const auto result = isOn ? m_loginItem.registerItem() : m_loginItem.unregisterItem();
    m_problem = result ? QString() : result.error();
    if (!result) {
        m_logger.error(QStringLiteral("launch-at-login %1 failed: %2")
                           .arg(isOn ? QStringLiteral("register") : QStringLiteral("unregister"), m_problem));
        // Where it is not offered, nobody is waiting before a switch, and there are no settings to open.
        if (m_failureAlert && m_loginItem.status() != LoginItemStatus::unavailable)
            tellFailure(*m_failureAlert);
    }
    readStatus();
}

void LaunchAtLoginService::tellFailure(const FailureAlert &failureAlert)
{
    const LocalizedStrings &strings = failureAlert.strings;
    const AlertDescription description{
        strings.text(QStringLiteral("settings.general.launch_at_login_failed_alert")),
        strings.text(QStringLiteral("settings.general.launch_at_login_failed_alert_detail")),
        strings.text(QStringLiteral("settings.general.launch_at_login_open_settings_button")),
        strings.text(QStringLiteral("settings.general.launch_at_login_dismiss_button"))};
    SystemSettings &systemSettings = failureAlert.systemSettings;
    failureAlert.alert.showWarning(description, [service = QPointer(this), &systemSettings](AlertButton button) {
        if (service && button == AlertButton::first && !systemSettings.openLoginItems())
            service->m_logger.error(QStringLiteral("the system's login items cannot be opened"));
    });
}

}
