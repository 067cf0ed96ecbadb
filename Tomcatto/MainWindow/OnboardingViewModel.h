#pragma once

#include "Localization/LocalizedStrings.h"
#include "MainWindow/DesktopCapabilities.h"
#include "Platform/Ports/SystemSettings.h"
#include "Platform/Ports/WallClock.h"
#include "QuillbayKit/NotificationAuthorization.h"
#include "Timer/PomodoroSettings.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The four steps of onboarding: what it is, a rhythm, alerts, where it lives. Choices act at once; finishing is the
/// controller's. Main thread only.
class OnboardingViewModel final : public QObject
{
    Q_OBJECT
    /// From 0.
    Q_PROPERTY(int step READ step NOTIFY stepChanged FINAL)
    Q_PROPERTY(int stepCount READ stepCount CONSTANT FINAL)
    Q_PROPERTY(QString stepName READ stepName NOTIFY changed FINAL)
    /// The presets: id, title, help, durations (one text), set (phase and seconds), name.
    Q_PROPERTY(QVariantList presets READ presets NOTIFY changed FINAL)
    /// The id of the chosen preset; empty while the durations match none.
    Q_PROPERTY(QString preset READ preset NOTIFY changed FINAL)
    /// "ask", "allowed", "denied" or "unavailable".
    Q_PROPERTY(QString notifications READ notifications NOTIFY changed FINAL)
    Q_PROPERTY(QString notificationsText READ notificationsText NOTIFY changed FINAL)
    /// What is said of notifications under their title.
    Q_PROPERTY(QString notificationsHelp READ notificationsHelp NOTIFY changed FINAL)
    Q_PROPERTY(bool sound READ sound NOTIFY changed FINAL)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin NOTIFY changed FINAL)
    /// Whether the system offers it at all.
    Q_PROPERTY(bool offersLaunchAtLogin READ offersLaunchAtLogin NOTIFY changed FINAL)
    /// The length of a focus phase as the dial and the pill show it.
    Q_PROPERTY(QString focusTime READ focusTime NOTIFY changed FINAL)
    /// A day and an hour, as a bar shows them, for the picture.
    Q_PROPERTY(QString barTime READ barTime NOTIFY changed FINAL)
    /// Whether the pill is what the user will see; else it is a tray icon.
    Q_PROPERTY(bool showsPill READ showsPill NOTIFY changed FINAL)

public:
    OnboardingViewModel(PomodoroSettings &settings, quillbay::NotificationAuthorization &authorization,
                        SystemSettings &systemSettings, const LocalizedStrings &strings, const WallClock &wallClock,
                        QObject *parent = nullptr);

    [[nodiscard]] int step() const noexcept { return m_step; }
    [[nodiscard]] int stepCount() const noexcept { return 4; }
    [[nodiscard]] QString stepName() const;
    [[nodiscard]] QVariantList presets() const;
    [[nodiscard]] QString preset() const;
    [[nodiscard]] QString notifications() const;
    [[nodiscard]] QString notificationsText() const;
    [[nodiscard]] QString notificationsHelp() const;
    [[nodiscard]] bool sound() const { return m_settings.soundEnabled(); }
    [[nodiscard]] bool launchAtLogin() const { return m_settings.launchAtLogin(); }
    [[nodiscard]] QString focusTime() const;
    [[nodiscard]] QString barTime() const;
    [[nodiscard]] bool offersLaunchAtLogin() const noexcept { return m_capabilities.opensAtLogin; }
    [[nodiscard]] bool showsPill() const noexcept { return m_capabilities.showsPill; }

    /// What the application found out about the desktop.
    void setCapabilities(const DesktopCapabilities &capabilities);
    /// Back to the first step; reads the permission anew.
    void restart();

    Q_INVOKABLE void next();
    Q_INVOKABLE void back();
    Q_INVOKABLE void choosePreset(const QString &id);
    /// Asks for the permission; where it was denied, opens the system's settings, and where it is there, shows one.
    Q_INVOKABLE void allowNotifications();
    Q_INVOKABLE void setSound(bool isOn);
    Q_INVOKABLE void setLaunchAtLogin(bool isOn);
    /// Ends onboarding and begins a focus phase; from any step.
    Q_INVOKABLE void startFocus();

Q_SIGNALS:
    void changed();
    void stepChanged();
    /// The user wants to see a notification.
    void testNotificationRequested();
    /// The user is done and wants a focus phase.
    void finished();

private:
    void go(int step);

    PomodoroSettings &m_settings;
    quillbay::NotificationAuthorization &m_authorization;
    SystemSettings &m_systemSettings;
    const LocalizedStrings &m_strings;
    const WallClock &m_wallClock;
    int m_step = 0;
    DesktopCapabilities m_capabilities;
};

}
