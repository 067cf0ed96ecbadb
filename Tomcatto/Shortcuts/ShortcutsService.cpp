#include "Shortcuts/ShortcutsService.h"

#include <nlohmann/json.hpp>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

const QString bindingsKey = QStringLiteral("globalShortcuts");

}

ShortcutsService::ShortcutsService(UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
{
    load();
}

void ShortcutsService::load()
{
    const auto value = m_defaults.value(bindingsKey);
    const auto *const data = value ? std::get_if<QByteArray>(&*value) : nullptr;
    if (!data)
        return;
    const Json object = Json::parse(data->begin(), data->end(), nullptr, false);
    if (!object.is_object())
        return;
    std::map<ShortcutAction, KeyCombo> bindings;
    for (const auto &[name, member] : object.items()) {
        const auto action = fromRawValue<ShortcutAction>(QString::fromStdString(name));
        if (!action)
            continue;
        const auto combo = decodedKeyCombo(member);
        if (!combo)
            return;
        bindings.insert_or_assign(*action, *combo);
    }
    m_bindings = std::move(bindings);
}

void ShortcutsService::save()
{
    try {
        Json object = Json::object();
        for (const auto &[action, combo] : m_bindings)
            object[rawValue(action).toStdString()] = encoded(combo);
        m_defaults.setValue(bindingsKey, QByteArray::fromStdString(object.dump()));
    } catch (const Json::exception &exception) {
        m_logger.error(QStringLiteral("Could not save shortcuts: ") + QString::fromUtf8(exception.what()));
    }
}

std::optional<KeyCombo> ShortcutsService::binding(ShortcutAction action) const
{
    const auto found = m_bindings.find(action);
    return found == m_bindings.end() ? std::nullopt : std::optional(found->second);
}

void ShortcutsService::setBinding(ShortcutAction action, const KeyCombo &combo)
{
    m_bindings.insert_or_assign(action, combo);
    save();
    apply();
}

void ShortcutsService::clearBinding(ShortcutAction action)
{
    m_bindings.erase(action);
    save();
    apply();
}

void ShortcutsService::attach(std::unique_ptr<GlobalHotkeyController> controller)
{
    m_controller = std::move(controller);
    m_controller->setOnAvailabilityChanged(
        [this](ShortcutAction action, bool isAvailable) { noteAvailability(action, isAvailable); });
    apply();
}

void ShortcutsService::apply()
{
    // All go first, so that one action can have what another one gives up.
    if (m_controller)
        m_controller->unregisterAll();
    if (m_controller && !m_isSuspended) {
        std::set<ShortcutAction> failures;
        for (const auto &[action, combo] : m_bindings) {
            if (!m_controller->registerAction(action, combo))
                failures.insert(action);
        }
        m_unavailable = std::move(failures);
    }
    Q_EMIT changed();
}

void ShortcutsService::setSuspended(bool isSuspended)
{
    if (std::exchange(m_isSuspended, isSuspended) != isSuspended)
        apply();
}

void ShortcutsService::noteAvailability(ShortcutAction action, bool isAvailable)
{
    if (isAvailable)
        m_unavailable.erase(action);
    else
        m_unavailable.insert(action);
    Q_EMIT changed();
}

}
