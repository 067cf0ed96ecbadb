#include "Timer/SettingsCatalog.h"

#include <algorithm>
#include <cmath>

namespace tomcatto {

namespace {

using Key = PomodoroSettings::Key;
using Kind = SettingDescriptor::Kind;

constexpr qint64 longestDuration = longestDurationMinutes * 60;

SettingDescriptor integer(Key key, qint64 fallback, qint64 minimum, qint64 maximum)
{
    return {key, Kind::integer, fallback, minimum, maximum, {}};
}

SettingDescriptor boolean(Key key, bool fallback)
{
    return {key, Kind::boolean, fallback, 0, 1, {QStringLiteral("false"), QStringLiteral("true")}};
}

/// The texts stand in the order of their enumeration, whose first case is the default where no other is named.
template<typename Case = int>
SettingDescriptor choice(Key key, const QStringList &texts, Case fallback = {})
{
    return {key, Kind::choice, static_cast<qint64>(fallback), 0, texts.size() - 1, texts};
}

QStringList languageTexts()
{
    QStringList texts;
    for (const SelectedLanguage language : allLanguages)
        texts.append(rawValue(language));
    return texts;
}

}

const std::vector<SettingDescriptor> &settingDescriptors()
{
    static const std::vector<SettingDescriptor> descriptors{
        integer(Key::workDurationSeconds, 1500, 1, longestDuration),
        integer(Key::shortBreakDurationSeconds, 300, 1, longestDuration),
        integer(Key::longBreakDurationSeconds, 900, 1, longestDuration),
        integer(Key::cyclesBeforeLongBreak, 4, 1, 12),
        boolean(Key::autoStartBreaks, true),
        boolean(Key::autoStartFocus, true),
        boolean(Key::overflowEnabled, false),
        integer(Key::dailyGoalPomodoros, 8, 1, 24),
        choice(Key::menuBarStyle, {QStringLiteral("iconOnly"), QStringLiteral("countdown")}, MenuBarStyle::countdown),
        boolean(Key::soundEnabled, true),
        boolean(Key::notificationsEnabled, true),
        boolean(Key::launchAtLogin, false),
        choice(Key::themePreference, {QStringLiteral("system"), QStringLiteral("light"), QStringLiteral("dark")}),
        choice(Key::videoSource, {QStringLiteral("bundled")}),
        choice(Key::selectedLanguage, languageTexts()),
        boolean(Key::hasCompletedOnboarding, false),
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

QString SettingDescriptor::text(qint64 value) const
{
    return kind == Kind::integer ? QString::number(value) : texts.value(value);
}

DefaultsValue SettingDescriptor::stored(qint64 value) const
{
    if (kind == Kind::choice)
        return texts.value(value);
    return kind == Kind::boolean ? DefaultsValue(value != 0) : DefaultsValue(value);
}

std::optional<qint64> SettingDescriptor::read(const std::optional<DefaultsValue> &value) const
{
    const auto *const whole = value ? std::get_if<qint64>(&*value) : nullptr;
    const auto *const number = value ? std::get_if<double>(&*value) : nullptr;
    const auto *const flag = value ? std::get_if<bool>(&*value) : nullptr;
    const auto *const name = value ? std::get_if<QString>(&*value) : nullptr;
    // Fractions are dropped; what no integer can hold counts as absent.
    constexpr double limit = 9.2e18;
    if (kind == Kind::integer && whole)
        return *whole;
    if (kind == Kind::integer && number && std::abs(*number) < limit)
        return static_cast<qint64>(*number);
    if (kind == Kind::boolean && flag)
        return *flag;
    if (kind == Kind::choice && name && texts.contains(*name))
        return texts.indexOf(*name);
    return std::nullopt;
}

std::expected<qint64, QString> SettingDescriptor::parse(const QString &text) const
{
    bool isAllowed = texts.contains(text);
    const qint64 value = kind == Kind::integer ? text.toLongLong(&isAllowed) : texts.indexOf(text);
    if (isAllowed && value >= minimum && value <= maximum)
        return value;
    const QString allowed = kind == Kind::integer
                                ? QStringLiteral("a whole number from %1 to %2").arg(minimum).arg(maximum)
                            : kind == Kind::boolean ? QStringLiteral("true or false")
                                                    : QStringLiteral("one of: ") + texts.join(QStringLiteral(", "));
    return std::unexpected(PomodoroSettings::keyText(key) + QStringLiteral(": \"") + text +
                           QStringLiteral("\" is not allowed; use ") + allowed);
}

}
