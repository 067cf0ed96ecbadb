#include "Composition/ShortcutCommands.h"

#include "Shortcuts/KeyComboFormatter.h"
#include "Shortcuts/ShortcutValidation.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

ControlReply list(const ShortcutCommandParts &parts)
{
    Json lines = Json::array();
    for (const ShortcutAction action : allShortcutActions) {
        Json line{{"action", rawValue(action).toStdString()}};
        if (const auto combo = parts.shortcuts.binding(action)) {
            line["combination"] = KeyComboFormatter::words(*combo).toStdString();
            line["symbols"] = KeyComboFormatter::string(*combo, parts.strings).toStdString();
            line["isUnavailable"] = parts.shortcuts.isUnavailable(action);
        }
        lines.push_back(std::move(line));
    }
    return {ExitStatus::done, {}, lines};
}

/// Why a combination is none for a shortcut; empty where it is one.
QString refusal(const KeyCombo &combo, const LocalizedStrings &strings)
{
    const auto result = ShortcutValidation::validate(combo);
    switch (result.kind) {
    case ShortcutValidation::Result::Kind::reserved:
        return strings.format(QStringLiteral("settings.shortcuts.reserved_combination"),
                              KeyComboFormatter::string(combo, strings),
                              strings.text(ShortcutValidation::displayNameKey(result.reservedName)));
    case ShortcutValidation::Result::Kind::standard:
        return strings.text(QStringLiteral("settings.shortcuts.standard"));
    case ShortcutValidation::Result::Kind::invalid:
        return strings.text(QStringLiteral("settings.shortcuts.invalid"));
    case ShortcutValidation::Result::Kind::ok:
        break;
    }
    return {};
}

ControlReply stored(const ShortcutCommandParts &parts)
{
    if (!parts.defaults.synchronize())
        return controlReply(ExitStatus::failed,
                            QStringLiteral("The shortcut is not stored: the settings file cannot be written.") +
                                parts.whenUnstored);
    return {};
}

ControlReply working(const ShortcutCommandParts &parts, ShortcutAction action)
{
    const bool isOffered = !parts.hotKeys || parts.hotKeys->support() != HotKeySupport::none;
    if (isOffered && !parts.shortcuts.isUnavailable(action))
        return {};
    const QString reason = isOffered ? QStringLiteral("main.general.shortcuts.unavailable")
                                     : QStringLiteral("window.general.shortcuts.help_unavailable");
    return controlReply(ExitStatus::notApplicable,
                        QStringLiteral("The shortcut is stored, but does not work now. ") + parts.strings.text(reason));
}

ControlReply set(const ShortcutCommandParts &parts, ShortcutAction action, const QString &text)
{
    const auto combo = KeyComboFormatter::parsed(text);
    if (!combo)
        return controlReply(ExitStatus::usage,
                            QStringLiteral("\"%1\" is not a combination of keys such as control+alt+space").arg(text));
    if (const QString reason = refusal(*combo, parts.strings); !reason.isEmpty())
        return controlReply(ExitStatus::usage, reason);
    parts.shortcuts.setBinding(action, *combo);
    const ControlReply reply = stored(parts);
    return reply.status == ExitStatus::done ? working(parts, action) : reply;
}

ControlReply shortcutsCommand(const ShortcutCommandParts &parts, const Json &arguments)
{
    const QString wanted = textArgument(arguments, "action");
    if (wanted == QStringLiteral("list"))
        return list(parts);
    const QString name = textArgument(arguments, "shortcut");
    const auto action = fromRawValue<ShortcutAction>(name);
    if (!action)
        return controlReply(ExitStatus::usage,
                            QStringLiteral("Unknown action \"%1\"; use toggleTimer, skip or extend").arg(name));
    if (wanted == QStringLiteral("set"))
        return set(parts, *action, textArgument(arguments, "combination"));
    if (wanted != QStringLiteral("clear"))
        return controlReply(ExitStatus::usage, QStringLiteral("Unknown action \"%1\" on shortcuts").arg(wanted));
    parts.shortcuts.clearBinding(*action);
    return stored(parts);
}

}

void addShortcutCommands(CommandTable &table, const ShortcutCommandParts &parts)
{
    table.add(QStringLiteral("shortcuts"),
              [parts](const Json &arguments) { return shortcutsCommand(parts, arguments); });
}

}
