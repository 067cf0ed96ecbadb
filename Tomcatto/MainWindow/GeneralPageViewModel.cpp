#include "MainWindow/GeneralPageViewModel.h"

#include <algorithm>

namespace tomcatto {

namespace {

using quillbay::NotificationAuthorization;

constexpr std::array menuBarStyleOrder{MenuBarStyle::iconOnly, MenuBarStyle::countdown};
constexpr std::array themeOrder{ThemePreference::system, ThemePreference::light, ThemePreference::dark};

template<typename Choices, typename Choice>
int indexOf(const Choices &choices, Choice choice)
{
    return static_cast<int>(std::ranges::find(choices, choice) - choices.begin());
}

/// The choice at an index; nothing outside.
template<typename Choices>
std::optional<typename Choices::value_type> choiceAt(const Choices &choices, int index)
{
    if (index < 0 || index >= static_cast<int>(choices.size()))
        return std::nullopt;
    return choices[static_cast<std::size_t>(index)];
}

}

GeneralPageViewModel::GeneralPageViewModel(PomodoroSettings &settings, LaunchAtLoginService &launchAtLogin,
                                           NotificationAuthorization &authorization, SystemSettings &systemSettings,
                                           const LanguageOverrideService &languageService,
                                           const LocalizedStrings &strings, ShortcutsViewModel &shortcuts,
                                           MannersViewModel &manners, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_launchAtLogin(launchAtLogin)
    , m_authorization(authorization)
    , m_systemSettings(systemSettings)
    , m_languageService(languageService)
    , m_strings(strings)
    , m_shortcuts(shortcuts)
    , m_manners(manners)
{
    connect(&settings, &PomodoroSettings::changed, this, &GeneralPageViewModel::changed);
    connect(&launchAtLogin, &LaunchAtLoginService::statusChanged, this, &GeneralPageViewModel::changed);
    connect(&authorization, &NotificationAuthorization::changed, this, &GeneralPageViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &GeneralPageViewModel::changed);
}

QStringList GeneralPageViewModel::menuBarStyles() const
{
    return {m_strings.text(QStringLiteral("window.general.menu_bar_style.icon_only")),
            m_strings.text(QStringLiteral("window.general.menu_bar_style.countdown"))};
}

int GeneralPageViewModel::menuBarStyle() const
{
    return indexOf(menuBarStyleOrder, m_settings.menuBarStyle());
}

QStringList GeneralPageViewModel::themes() const
{
    QStringList texts;
    for (const char *const theme : {"system", "light", "dark"})
        texts.append(m_strings.text(QStringLiteral("window.general.theme.") + QLatin1String(theme)));
    return texts;
}

int GeneralPageViewModel::theme() const
{
    return indexOf(themeOrder, m_settings.themePreference());
}

QStringList GeneralPageViewModel::languages() const
{
    QStringList texts;
    for (const SelectedLanguage each : allLanguages)
        texts.append(m_strings.text(pickerLabelKey(each)));
    if (m_settings.selectedLanguage() == SelectedLanguage::system) {
        const QString resolved = m_strings.text(pickerLabelKey(m_languageService.resolvedLanguage()));
        texts[0] = m_strings.format(QStringLiteral("settings.general.language_system_resolved"), resolved);
    }
    return texts;
}

int GeneralPageViewModel::language() const
{
    return indexOf(allLanguages, m_settings.selectedLanguage());
}

bool GeneralPageViewModel::notifications() const
{
    return m_settings.notificationsEnabled() && !notificationsBlocked();
}

QString GeneralPageViewModel::notificationsHelp() const
{
    switch (m_authorization.permission()) {
    case NotificationPermission::notDetermined:
        return m_strings.text(QStringLiteral("window.general.notifications.help_not_asked"));
    case NotificationPermission::authorised:
        return m_strings.text(QStringLiteral("window.general.notifications.help_allowed"));
    case NotificationPermission::denied:
        return m_strings.text(QStringLiteral("window.general.notifications.help_denied"));
    case NotificationPermission::unavailable:
        return m_strings.text(QStringLiteral("window.general.notifications.help_unavailable"));
    }
    return {};
}

bool GeneralPageViewModel::notificationsBlocked() const
{
    return notificationsDenied() || m_authorization.permission() == NotificationPermission::unavailable;
}

bool GeneralPageViewModel::notificationsDenied() const
{
    return m_authorization.permission() == NotificationPermission::denied;
}

QString GeneralPageViewModel::launchAtLoginHelp() const
{
    switch (m_launchAtLogin.status()) {
    case LoginItemStatus::requiresApproval:
        return m_strings.text(QStringLiteral("window.general.launch_at_login.help_approval"));
    case LoginItemStatus::otherProgram:
        return m_strings.text(QStringLiteral("window.general.launch_at_login.help_other"));
    case LoginItemStatus::unavailable:
        return m_strings.text(QStringLiteral("window.general.launch_at_login.help_unavailable"));
    case LoginItemStatus::notRegistered:
    case LoginItemStatus::enabled:
    case LoginItemStatus::outdated:
        break;
    }
    return m_strings.text(QStringLiteral("window.general.launch_at_login.help"));
}

void GeneralPageViewModel::setFloatingPill(std::optional<bool> isShown)
{
    if (isShown == m_floatingPill)
        return;
    m_floatingPill = isShown;
    Q_EMIT changed();
}

void GeneralPageViewModel::chooseMenuBarStyle(int index)
{
    if (const auto style = choiceAt(menuBarStyleOrder, index))
        m_settings.setMenuBarStyle(*style);
}

void GeneralPageViewModel::chooseTheme(int index)
{
    if (const auto preference = choiceAt(themeOrder, index))
        m_settings.setThemePreference(*preference);
}

void GeneralPageViewModel::chooseLanguage(int index)
{
    if (const auto language = choiceAt(allLanguages, index))
        m_settings.setSelectedLanguage(*language);
}

void GeneralPageViewModel::setSound(bool isOn)
{
    m_settings.setSoundEnabled(isOn);
}

void GeneralPageViewModel::setNotifications(bool isOn)
{
    m_settings.setNotificationsEnabled(isOn);
    if (isOn)
        m_authorization.request();
    // Where they are blocked the switch stays off, whatever the setting says.
    Q_EMIT changed();
}

void GeneralPageViewModel::openNotificationSettings()
{
    m_systemSettings.openNotifications();
}

void GeneralPageViewModel::setLaunchAtLogin(bool isOn)
{
    m_settings.setLaunchAtLogin(isOn);
    // A failure may have turned it back.
    Q_EMIT changed();
}

void GeneralPageViewModel::requestFloatingPill(bool isShown)
{
    Q_EMIT floatingPillRequested(isShown);
    Q_EMIT changed();
}

void GeneralPageViewModel::showTour()
{
    Q_EMIT tourRequested();
}

void GeneralPageViewModel::refresh()
{
    m_launchAtLogin.readStatus();
    m_authorization.refresh();
}

}
