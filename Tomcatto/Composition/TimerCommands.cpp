#include "Composition/TimerCommands.h"

#include "Timer/SettingsCatalog.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

QString idleReason()
{
    return QStringLiteral("No phase is running.");
}

QString startReason(const PomodoroStateMachine &machine)
{
    return machine.isPaused() ? QStringLiteral("The phase is paused; use resume.")
                              : QStringLiteral("A phase is already running.");
}

QString pauseReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason()
                                                         : QStringLiteral("The phase is already paused.");
}

QString resumeReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason() : QStringLiteral("The phase is not paused.");
}

QString takeBreakReason(const PomodoroStateMachine &machine)
{
    if (machine.currentPhase() == PomodoroPhase::idle)
        return idleReason();
    return isBreak(machine.currentPhase()) ? QStringLiteral("The break is already running.")
                                           : QStringLiteral("The focus phase is not in overtime; use skip to end it.");
}

QString extendReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason()
                                                         : QStringLiteral("The phase has no time left to extend.");
}

bool startOrResume(PomodoroStateMachine &machine)
{
    return machine.isPhasePending() ? machine.resume() : machine.start();
}

bool toggle(PomodoroStateMachine &machine)
{
    if (machine.currentPhase() == PomodoroPhase::idle)
        return machine.start();
    return machine.isPaused() ? machine.resume() : machine.pause();
}

ControlReply settingsCommand(AppDependencies &dependencies, const Json &arguments)
{
    PomodoroSettings &settings = dependencies.settings;
    const std::string key = arguments.value("key", std::string());
    if (key.empty()) {
        Json all = Json::object();
        for (const SettingDescriptor &setting : settingDescriptors())
            all[PomodoroSettings::keyText(setting.key).toStdString()] =
                settingText(settings, setting.key).toStdString();
        return {ExitStatus::done, {}, all};
    }
    const SettingDescriptor *const setting = findSetting(QString::fromStdString(key));
    if (!setting)
        return controlReply(ExitStatus::usage,
                            QStringLiteral("Unknown setting \"%1\"").arg(QString::fromStdString(key)));
    if (!arguments.contains("value"))
        return {ExitStatus::done, {}, Json(settingText(settings, setting->key).toStdString())};
    const auto value = parseSetting(*setting, QString::fromStdString(arguments.value("value", std::string())));
    if (!value)
        return controlReply(ExitStatus::usage, value.error());
    applySetting(settings, setting->key, *value);
    // What the system refuses goes back at once.
    if (parseSetting(*setting, settingText(settings, setting->key)) != value)
        return controlReply(ExitStatus::failed,
                            QStringLiteral("The system does not take this setting; the log says why."));
    if (!dependencies.platform.defaults.synchronize())
        return controlReply(ExitStatus::failed,
                            QStringLiteral("The setting holds for this run, but its file cannot be written."));
    return {};
}

ControlReply presetCommand(AppDependencies &dependencies, const Json &arguments)
{
    const QString name = QString::fromStdString(arguments.value("name", std::string()));
    for (const NamedPreset preset : namedPresets) {
        if (rawValue(preset) != name)
            continue;
        dependencies.settings.apply(preset);
        if (!dependencies.platform.defaults.synchronize())
            return controlReply(ExitStatus::failed,
                                QStringLiteral("The preset holds for this run, but its file cannot be written."));
        return {};
    }
    return controlReply(ExitStatus::usage,
                        QStringLiteral("Unknown preset \"%1\"; use classic, flow or deep").arg(name));
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

void addTimerCommands(CommandTable &table, AppDependencies &dependencies, const StatusSource &status)
{
    PomodoroStateMachine &machine = dependencies.stateMachine;
    const auto addOperation = [&](const QString &name, std::function<bool()> operation,
                                  std::function<QString()> reason) {
        table.add(name, [operation = std::move(operation), reason = std::move(reason), &status](const Json &) {
            if (!operation())
                return controlReply(ExitStatus::notApplicable, reason());
            return ControlReply{ExitStatus::done, rendered(status.status(), StatusFormat::text), {}};
        });
    };
    addOperation(
        QStringLiteral("start"), [&machine] { return startOrResume(machine); },
        [&machine] { return startReason(machine); });
    addOperation(
        QStringLiteral("pause"), [&machine] { return machine.pause(); }, [&machine] { return pauseReason(machine); });
    addOperation(
        QStringLiteral("resume"), [&machine] { return machine.resume(); },
        [&machine] { return resumeReason(machine); });
    addOperation(
        QStringLiteral("toggle"), [&machine] { return toggle(machine); }, idleReason);
    addOperation(
        QStringLiteral("skip"), [&machine] { return machine.skip(); }, idleReason);
    addOperation(
        QStringLiteral("take-break"), [&machine] { return machine.takeBreak(); },
        [&machine] { return takeBreakReason(machine); });
    addOperation(
        QStringLiteral("extend"), [&machine] { return machine.extend(extensionSeconds); },
        [&machine] { return extendReason(machine); });
    addOperation(
        QStringLiteral("reset"), [&machine] { return machine.reset(); }, idleReason);
    table.add(QStringLiteral("status"), [&status](const Json &) {
        return ControlReply{ExitStatus::done, {}, toJson(status.status())};
    });
    table.add(QStringLiteral("settings"),
              guarded([&dependencies](const Json &arguments) { return settingsCommand(dependencies, arguments); }));
    table.add(QStringLiteral("preset"),
              guarded([&dependencies](const Json &arguments) { return presetCommand(dependencies, arguments); }));
}

}
