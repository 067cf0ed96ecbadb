#pragma once

#include "Localization/LocalizedStrings.h"
#include "MainWindow/MannersViewModel.h"
#include "MainWindow/ShortcutsViewModel.h"
#include "Platform/Ports/SystemSettings.h"
#include "QuillbayKit/NotificationAuthorization.h"
#include "SystemIntegration/LaunchAtLoginService.h"

#include <QtCore/QStringList>

namespace tomcatto {

/// The general page: how the application shows and speaks up. Choices are given as texts and the index of the chosen
/// one. Main thread only.
class GeneralPageViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<QString> menuBarStyles READ menuBarStyles NOTIFY changed FINAL)
    Q_PROPERTY(int menuBarStyle READ menuBarStyle NOTIFY changed FINAL)
    Q_PROPERTY(QList<QString> themes READ themes NOTIFY changed FINAL)
    Q_PROPERTY(int theme READ theme NOTIFY changed FINAL)
    Q_PROPERTY(QList<QString> languages READ languages NOTIFY changed FINAL)
    Q_PROPERTY(int language READ language NOTIFY changed FINAL)
    Q_PROPERTY(bool sound READ sound NOTIFY changed FINAL)
    /// On as well as allowed.
    Q_PROPERTY(bool notifications READ notifications NOTIFY changed FINAL)
    Q_PROPERTY(QString notificationsHelp READ notificationsHelp NOTIFY changed FINAL)
    /// The system shows none of them, for the reason that the help tells.
    Q_PROPERTY(bool notificationsBlocked READ notificationsBlocked NOTIFY changed FINAL)
    /// The user can change that in the system's settings.
    Q_PROPERTY(bool notificationsDenied READ notificationsDenied NOTIFY changed FINAL)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin NOTIFY changed FINAL)
    /// Whether the system offers it at all.
    Q_PROPERTY(bool offersLaunchAtLogin READ offersLaunchAtLogin NOTIFY changed FINAL)
    Q_PROPERTY(QString launchAtLoginHelp READ launchAtLoginHelp NOTIFY changed FINAL)
    /// Whether the whole pill may be shown in a small window of its own, and whether it is.
    Q_PROPERTY(bool offersFloatingPill READ offersFloatingPill NOTIFY changed FINAL)
    Q_PROPERTY(bool floatingPill READ floatingPill NOTIFY changed FINAL)
    Q_PROPERTY(tomcatto::ShortcutsViewModel *shortcuts READ shortcuts CONSTANT FINAL)
    Q_PROPERTY(tomcatto::MannersViewModel *manners READ manners CONSTANT FINAL)

public:
    GeneralPageViewModel(PomodoroSettings &settings, LaunchAtLoginService &launchAtLogin,
                         quillbay::NotificationAuthorization &authorization, SystemSettings &systemSettings,
                         const LanguageOverrideService &languageService, const LocalizedStrings &strings,
                         ShortcutsViewModel &shortcuts, MannersViewModel &manners, QObject *parent = nullptr);

    [[nodiscard]] QStringList menuBarStyles() const;
    [[nodiscard]] int menuBarStyle() const;
    [[nodiscard]] QStringList themes() const;
    [[nodiscard]] int theme() const;
    [[nodiscard]] QStringList languages() const;
    [[nodiscard]] int language() const;
    [[nodiscard]] bool sound() const { return m_settings.soundEnabled(); }
    [[nodiscard]] bool notifications() const;
    [[nodiscard]] QString notificationsHelp() const;
    [[nodiscard]] bool notificationsBlocked() const;
    [[nodiscard]] bool notificationsDenied() const;
    [[nodiscard]] bool launchAtLogin() const { return m_settings.launchAtLogin(); }
    [[nodiscard]] bool offersLaunchAtLogin() const { return m_launchAtLogin.status() != LoginItemStatus::unavailable; }
    [[nodiscard]] QString launchAtLoginHelp() const;
    [[nodiscard]] bool offersFloatingPill() const { return m_floatingPill.has_value(); }
    [[nodiscard]] bool floatingPill() const { return m_floatingPill.value_or(false); }

    [[nodiscard]] ShortcutsViewModel *shortcuts() const { return &m_shortcuts; }
    [[nodiscard]] MannersViewModel *manners() const { return &m_manners; }

    /// Whether the floating pill is shown; nothing if it is not the user's choice. Set by the pill's owner.
    void setFloatingPill(std::optional<bool> isShown);

    Q_INVOKABLE void chooseMenuBarStyle(int index);
    Q_INVOKABLE void chooseTheme(int index);
    Q_INVOKABLE void chooseLanguage(int index);
    Q_INVOKABLE void setSound(bool isOn);
    /// Turning them on asks the system for its permission too.
    Q_INVOKABLE void setNotifications(bool isOn);
    Q_INVOKABLE void openNotificationSettings();
    Q_INVOKABLE void setLaunchAtLogin(bool isOn);
    Q_INVOKABLE void requestFloatingPill(bool isShown);
    Q_INVOKABLE void showTour();
    /// The page came into view: reads anew what others may have changed meanwhile.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void changed();
    /// The user wants the pill's small window shown or gone.
    void floatingPillRequested(bool isShown);
    /// The user wants to see onboarding again.
    void tourRequested();

private:
    PomodoroSettings &m_settings;
    LaunchAtLoginService &m_launchAtLogin;
    quillbay::NotificationAuthorization &m_authorization;
    SystemSettings &m_systemSettings;
    const LanguageOverrideService &m_languageService;
    const LocalizedStrings &m_strings;
    ShortcutsViewModel &m_shortcuts;
    MannersViewModel &m_manners;
    std::optional<bool> m_floatingPill;
};

}
