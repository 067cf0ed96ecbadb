#include "Timer/SettingsCatalog.h"

#include <algorithm>

namespace tomcatto {

namespace {

using Key = PomodoroSettings::Key;

// The duration controls reach from 1 to 180 minutes; the command line takes seconds as well.
constexpr qint64 longestDuration = 180LL * 60;

SettingDescriptor integer(Key key, qint64 minimum, qint64 maximum)
{
    return {key, SettingDescriptor::Kind::integer, minimum, maximum, {}};
}

SettingDescriptor boolean(Key key)
{
    return {key, SettingDescriptor::Kind::boolean, 0, 0, {QStringLiteral("true"), QStringLiteral("false")}};
}

template<typename... Cases>
SettingDescriptor choice(Key key, Cases... cases)
{
    return {key, SettingDescriptor::Kind::choice, 0, 0, {rawValue(cases)...}};
}

QString booleanText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

}

const std::vector<SettingDescriptor> &settingDescriptors()
{
    static const std::vector<SettingDescriptor> descriptors{
        integer(Key::workDurationSeconds, 1, longestDuration),
        integer(Key::shortBreakDurationSeconds, 1, longestDuration),
        integer(Key::longBreakDurationSeconds, 1, longestDuration),
        integer(Key::cyclesBeforeLongBreak, 1, 12),
        boolean(Key::autoStartBreaks),
        boolean(Key::autoStartFocus),
        boolean(Key::overflowEnabled),
        integer(Key::dailyGoalPomodoros, 1, 24),
        choice(Key::menuBarStyle, MenuBarStyle::iconOnly, MenuBarStyle::countdown),
        boolean(Key::soundEnabled),
        boolean(Key::notificationsEnabled),
        boolean(Key::launchAtLogin),
        choice(Key::themePreference, ThemePreference::system, ThemePreference::light, ThemePreference::dark),
        choice(Key::videoSource, VideoSource::bundled),
        choice(Key::selectedLanguage, SelectedLanguage::system, SelectedLanguage::en, SelectedLanguage::tr,
               SelectedLanguage::de, SelectedLanguage::es, SelectedLanguage::fr),
        boolean(Key::hasCompletedOnboarding),
    };
    return descriptors;
}

const SettingDescriptor *findSetting(QStringView keyText)
{
    const auto &all = settingDescriptors();
    const auto found = std::ranges::find_if(
        all, [keyText](const SettingDescriptor &setting) { return keyText == PomodoroSettings::keyText(setting.key); });
    return found != all.end() ? &*found : nullptr;
}

std::expected<DefaultsValue, QString> parseSetting(const SettingDescriptor &setting, const QString &text)
{
    const QString subject = PomodoroSettings::keyText(setting.key) + QStringLiteral(": \"") + text +
                            QStringLiteral("\" is not allowed; use ");
    switch (setting.kind) {
    case SettingDescriptor::Kind::integer: {
        bool isNumber = false;
        const qint64 number = text.toLongLong(&isNumber);
        if (!isNumber || number < setting.minimum || number > setting.maximum)
            return std::unexpected(
                subject + QStringLiteral("a whole number from %1 to %2").arg(setting.minimum).arg(setting.maximum));
        return DefaultsValue(number);
    }
    case SettingDescriptor::Kind::boolean:
        if (!setting.choices.contains(text))
            return std::unexpected(subject + QStringLiteral("true or false"));
        return DefaultsValue(text == booleanText(true));
    case SettingDescriptor::Kind::choice:
        if (!setting.choices.contains(text))
            return std::unexpected(subject + QStringLiteral("one of: ") + setting.choices.join(QStringLiteral(", ")));
        return DefaultsValue(text);
    }
    return std::unexpected(subject);
}

QString settingText(const PomodoroSettings &settings, Key key)
{
    switch (key) {
    case Key::workDurationSeconds:
        return QString::number(settings.workDurationSeconds());
    case Key::shortBreakDurationSeconds:
        return QString::number(settings.shortBreakDurationSeconds());
    case Key::longBreakDurationSeconds:
        return QString::number(settings.longBreakDurationSeconds());
    case Key::cyclesBeforeLongBreak:
        return QString::number(settings.cyclesBeforeLongBreak());
    case Key::autoStartBreaks:
        return booleanText(settings.autoStartBreaks());
    case Key::autoStartFocus:
        return booleanText(settings.autoStartFocus());
    case Key::overflowEnabled:
        return booleanText(settings.overflowEnabled());
    case Key::dailyGoalPomodoros:
        return QString::number(settings.dailyGoalPomodoros());
    case Key::menuBarStyle:
        return rawValue(settings.menuBarStyle());
    case Key::soundEnabled:
        return booleanText(settings.soundEnabled());
    case Key::notificationsEnabled:
        return booleanText(settings.notificationsEnabled());
    case Key::launchAtLogin:
        return booleanText(settings.launchAtLogin());
    case Key::themePreference:
        return rawValue(settings.themePreference());
    case Key::videoSource:
        return rawValue(settings.videoSource());
    case Key::selectedLanguage:
        return rawValue(settings.selectedLanguage());
    case Key::hasCompletedOnboarding:
        return booleanText(settings.hasCompletedOnboarding());
    case Key::autoStartNextCycle:
    case Key::menuBarPhaseColor:
        break;
    }
    return {};
}

void applySetting(PomodoroSettings &settings, Key key, const DefaultsValue &value)
{
    const auto *const number = std::get_if<qint64>(&value);
    const auto *const flag = std::get_if<bool>(&value);
    const auto *const text = std::get_if<QString>(&value);
    switch (key) {
    case Key::workDurationSeconds:
        return number ? settings.setWorkDurationSeconds(*number) : void();
    case Key::shortBreakDurationSeconds:
        return number ? settings.setShortBreakDurationSeconds(*number) : void();
    case Key::longBreakDurationSeconds:
        return number ? settings.setLongBreakDurationSeconds(*number) : void();
    case Key::cyclesBeforeLongBreak:
        return number ? settings.setCyclesBeforeLongBreak(*number) : void();
    case Key::autoStartBreaks:
        return flag ? settings.setAutoStartBreaks(*flag) : void();
    case Key::autoStartFocus:
        return flag ? settings.setAutoStartFocus(*flag) : void();
    case Key::overflowEnabled:
        return flag ? settings.setOverflowEnabled(*flag) : void();
    case Key::dailyGoalPomodoros:
        return number ? settings.setDailyGoalPomodoros(*number) : void();
    case Key::menuBarStyle:
        return text ? settings.setMenuBarStyle(menuBarStyleFromRawValue(*text).value_or(settings.menuBarStyle()))
                    : void();
    case Key::soundEnabled:
        return flag ? settings.setSoundEnabled(*flag) : void();
    case Key::notificationsEnabled:
        return flag ? settings.setNotificationsEnabled(*flag) : void();
    case Key::launchAtLogin:
        return flag ? settings.setLaunchAtLogin(*flag) : void();
    case Key::themePreference:
        return text ? settings.setThemePreference(
                          themePreferenceFromRawValue(*text).value_or(settings.themePreference()))
                    : void();
    case Key::videoSource:
        return text ? settings.setVideoSource(videoSourceFromRawValue(*text).value_or(settings.videoSource())) : void();
    case Key::selectedLanguage:
        return text ? settings.setSelectedLanguage(languageFromRawValue(*text).value_or(settings.selectedLanguage()))
                    : void();
    case Key::hasCompletedOnboarding:
        return flag ? settings.setHasCompletedOnboarding(*flag) : void();
    case Key::autoStartNextCycle:
    case Key::menuBarPhaseColor:
        return;
    }
}

}
