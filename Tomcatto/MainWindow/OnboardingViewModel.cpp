#include "MainWindow/OnboardingViewModel.h"

#include "Foundation/EnumTexts.h"
#include "MainWindow/NotificationTexts.h"
#include "MainWindow/SetSegments.h"
#include "StatusPill/StatusPillSource.h"

#include <algorithm>
#include <QtCore/QLocale>
#include <QtCore/QTime>

namespace tomcatto {

using quillbay::NotificationAuthorization;

OnboardingViewModel::OnboardingViewModel(PomodoroSettings &settings, NotificationAuthorization &authorization,
                                         SystemSettings &systemSettings, const LocalizedStrings &strings,
                                         const WallClock &wallClock, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_authorization(authorization)
    , m_systemSettings(systemSettings)
    , m_strings(strings)
    , m_wallClock(wallClock)
{
    connect(&settings, &PomodoroSettings::changed, this, &OnboardingViewModel::changed);
    connect(&authorization, &NotificationAuthorization::changed, this, &OnboardingViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &OnboardingViewModel::changed);
    connect(this, &OnboardingViewModel::stepChanged, this, &OnboardingViewModel::changed);
}

QString OnboardingViewModel::stepName() const
{
    return m_strings.format(QStringLiteral("onboarding.step.accessibility"), m_step + 1, stepCount());
}

QVariantList OnboardingViewModel::presets() const
{
    // The set is drawn with the rounds that most people keep, whatever was set before.
    constexpr int drawnRounds = 4;
    QVariantList list;
    for (const NamedPreset preset : namedPresets) {
        const QString key = QStringLiteral("window.timer.preset.%1.").arg(rawValue(preset));
        const PresetDurations lengths = durations(preset);
        const QString title = m_strings.text(key + QStringLiteral("title"));
        const QStringList minutes{QString::number(lengths.work / 60), QString::number(lengths.shortBreak / 60),
                                  QString::number(lengths.longBreak / 60)};
        list.append(QVariantMap{
            {QStringLiteral("id"), rawValue(preset)},
            {QStringLiteral("title"), title},
            {QStringLiteral("help"), m_strings.text(key + QStringLiteral("help"))},
            {QStringLiteral("durations"),
             m_strings.formatList(QStringLiteral("window.timer.preset.durations"), minutes)},
            {QStringLiteral("set"), setSegments(lengths, drawnRounds)},
            {QStringLiteral("name"),
             m_strings.formatList(QStringLiteral("window.timer.preset.accessibility"), QStringList{title} + minutes)}});
    }
    return list;
}

QString OnboardingViewModel::preset() const
{
    const PomodoroPreset preset = m_settings.preset();
    return preset ? rawValue(*preset) : QString();
}

QString OnboardingViewModel::notifications() const
{
    return textOf(std::array{"ask", "allowed", "denied", "unavailable"}, m_authorization.permission());
}

QString OnboardingViewModel::notificationsText() const
{
    constexpr std::array keys{"onboarding.alerts.allow", "onboarding.alerts.allowed", "onboarding.alerts.denied",
                              "window.general.notifications.help_unavailable"};
    return m_strings.text(textOf(keys, m_authorization.permission()));
}

QString OnboardingViewModel::notificationsHelp() const
{
    const QString usual = QStringLiteral("onboarding.alerts.notifications.help");
    switch (m_authorization.permission()) {
    case NotificationPermission::notDetermined:
        return m_strings.text(usual);
    case NotificationPermission::authorised:
        return allowedNotificationsText(m_authorization, m_strings, usual);
    case NotificationPermission::denied:
    case NotificationPermission::unavailable:
        return notificationsText();
    }
    return {};
}

QString OnboardingViewModel::focusTime() const
{
    return clockText(m_settings.workDurationSeconds());
}

QString OnboardingViewModel::barTime() const
{
    constexpr int tuesday = 2;
    const QLocale locale = m_strings.locale();
    return locale.dayName(tuesday, QLocale::ShortFormat) + QLatin1Char(' ') +
           locale.toString(QTime(9, 0), m_wallClock.calendar().timeFormat);
}

void OnboardingViewModel::setCapabilities(const DesktopCapabilities &capabilities)
{
    if (capabilities == m_capabilities)
        return;
    m_capabilities = capabilities;
    Q_EMIT changed();
}

void OnboardingViewModel::restart()
{
    go(0);
    m_authorization.refresh();
}

void OnboardingViewModel::next()
{
    go(m_step + 1);
}

void OnboardingViewModel::back()
{
    go(m_step - 1);
}

void OnboardingViewModel::go(int step)
{
    step = std::clamp(step, 0, stepCount() - 1);
    if (step == m_step)
        return;
    m_step = step;
    Q_EMIT stepChanged();
}

void OnboardingViewModel::choosePreset(const QString &id)
{
    const auto *const named = std::ranges::find_if(namedPresets, [&id](auto each) { return rawValue(each) == id; });
    if (named != namedPresets.end())
        m_settings.apply(*named);
}

void OnboardingViewModel::allowNotifications()
{
    if (m_authorization.permission() == NotificationPermission::denied) {
        m_systemSettings.openNotifications();
        return;
    }
    if (m_authorization.permission() == NotificationPermission::authorised)
        Q_EMIT testNotificationRequested();
    m_settings.setNotificationsEnabled(true);
    m_authorization.request();
}

void OnboardingViewModel::setSound(bool isOn)
{
    m_settings.setSoundEnabled(isOn);
}

void OnboardingViewModel::setLaunchAtLogin(bool isOn)
{
    m_settings.setLaunchAtLogin(isOn);
    // A failure may have turned it back.
    Q_EMIT changed();
}

void OnboardingViewModel::startFocus()
{
    Q_EMIT finished();
}

}
