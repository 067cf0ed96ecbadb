#include "Composition/SettingsCommands.h"

#include "Manners/MannersCatalog.h"
#include "Timer/SettingsCatalog.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

ControlReply stored(const SettingsCommandParts &parts, const QString &name)
{
    if (parts.defaults.synchronize())
        return {};
    return controlReply(ExitStatus::failed,
                        QStringLiteral("%1 is not stored: the settings file cannot be written.").arg(name) +
                            parts.whenUnstored);
}

ControlReply setSetting(const SettingsCommandParts &parts, const SettingDescriptor &setting, const QString &text)
{
    const QString name = PomodoroSettings::keyText(setting.key);
    const auto value = setting.parse(text);
    if (!value)
        return controlReply(ExitStatus::usage, value.error());
    parts.settings.setValue(setting.key, *value);
    // What the system refuses goes back at once.
    if (const qint64 present = parts.settings.value(setting.key); present != *value) {
        const QString &problem = parts.launchAtLogin.problem();
        return controlReply(ExitStatus::failed, QStringLiteral("%1 stays %2: %3")
                                                    .arg(name, setting.text(present),
                                                         problem.isEmpty() ? QStringLiteral("the system says so.")
                                                                           : problem + QLatin1Char('.')));
    }
    return stored(parts, name);
}

std::string settingText(const SettingsCommandParts &parts, const SettingDescriptor &setting)
{
    return setting.text(parts.settings.value(setting.key)).toStdString();
}

ControlReply settingsCommand(const SettingsCommandParts &parts, const Json &arguments)
{
    const std::string key = arguments.value("key", std::string());
    const SettingDescriptor *const setting = findSetting(QString::fromStdString(key));
    // The system's own settings may have switched it meanwhile.
    if (key.empty() || (setting && setting->key == PomodoroSettings::Key::launchAtLogin))
        parts.launchAtLogin.readStatus();
    if (key.empty()) {
        Json all = Json::object();
        for (const SettingDescriptor &each : settingDescriptors())
            all[PomodoroSettings::keyText(each.key).toStdString()] = settingText(parts, each);
        return {ExitStatus::done, {}, all};
    }
    if (!setting)
        return controlReply(ExitStatus::usage,
                            QStringLiteral("Unknown setting \"%1\"").arg(QString::fromStdString(key)));
    if (!arguments.contains("value"))
        return {ExitStatus::done, {}, Json(settingText(parts, *setting))};
    return setSetting(parts, *setting, QString::fromStdString(arguments.value("value", std::string())));
}

ControlReply presetCommand(const SettingsCommandParts &parts, const Json &arguments)
{
    const QString name = QString::fromStdString(arguments.value("name", std::string()));
    if (const auto preset = fromRawValue<NamedPreset>(name)) {
        parts.settings.apply(*preset);
        return stored(parts, QStringLiteral("The preset"));
    }
    return controlReply(ExitStatus::usage,
                        QStringLiteral("Unknown preset \"%1\"; use classic, flow or deep").arg(name));
}

/// A switch as a boolean, else the number.
Json mannerValue(const MannersSettings &manners, MannersSettings::Key key)
{
    return isSwitch(key) ? Json(manners.isOn(key)) : Json(manners.value(key));
}

ControlReply setManner(const SettingsCommandParts &parts, MannersSettings::Key key, const QString &text)
{
    const auto value = parsedManner(key, text);
    if (!value)
        return controlReply(ExitStatus::usage, value.error());
    parts.manners.setValue(key, *value);
    return stored(parts, MannersSettings::keyText(key));
}

ControlReply mannersCommand(const SettingsCommandParts &parts, const Json &arguments)
{
    const QString name = QString::fromStdString(arguments.value("name", std::string()));
    if (name.isEmpty()) {
        Json all = Json::object();
        for (const MannersSettings::Key each : allManners())
            all[MannersSettings::keyText(each).toStdString()] = mannerValue(parts.manners, each);
        return {ExitStatus::done, {}, all};
    }
    const auto key = findManner(name);
    if (!key)
        return controlReply(ExitStatus::usage, QStringLiteral("Unknown setting \"%1\"").arg(name));
    if (!arguments.contains("value"))
        return {ExitStatus::done, {}, mannerValue(parts.manners, *key)};
    return setManner(parts, *key, QString::fromStdString(arguments.value("value", std::string())));
}

/// Arguments of an unexpected type end in a usage error instead of an exception.
CommandTable::Handler guarded(std::function<ControlReply(const Json &)> handler)
{
    return [handler = std::move(handler)](const Json &arguments) {
        try {
            return handler(arguments.is_null() ? Json::object() : arguments);
        } catch (const Json::exception &exception) {
            return controlReply(ExitStatus::usage,
                                QStringLiteral("The arguments are wrong: ") + QString::fromUtf8(exception.what()));
        }
    };
}

}

void addSettingsCommands(CommandTable &table, const SettingsCommandParts &parts)
{
    table.add(QStringLiteral("settings"),
              guarded([parts](const Json &arguments) { return settingsCommand(parts, arguments); }));
    table.add(QStringLiteral("manners"),
              guarded([parts](const Json &arguments) { return mannersCommand(parts, arguments); }));
    table.add(QStringLiteral("preset"),
              guarded([parts](const Json &arguments) { return presetCommand(parts, arguments); }));
}

}
