#include "Shortcuts/GlobalHotkeyController.h"

namespace tomcatto {

namespace {

// "TOMC"
constexpr quint32 signature = 0x544F4D43;

std::optional<ShortcutAction> actionOf(HotKeyIdentifier identifier)
{
    return identifier.signature == signature ? shortcutActionFromHotKeyId(identifier.id) : std::nullopt;
}

}

GlobalHotkeyController::GlobalHotkeyController(HotKeys &hotKeys, const LocalizedStrings &strings,
                                               std::function<void(ShortcutAction)> onPressed)
    : m_hotKeys(hotKeys)
    , m_strings(strings)
    , m_onPressed(std::move(onPressed))
{
    m_hotKeys.setDelegate(this);
}

GlobalHotkeyController::~GlobalHotkeyController()
{
    unregisterAll();
    m_hotKeys.setDelegate(nullptr);
}

bool GlobalHotkeyController::registerAction(ShortcutAction action, const KeyCombo &combo)
{
    unregister(action);
    auto reference = m_hotKeys.registerHotKey(
        {{signature, hotKeyId(action)}, combo.keyCode, combo.modifierFlags, m_strings.text(labelKey(action))});
    if (reference) {
        m_hotKeyRefs.insert_or_assign(action, std::move(*reference));
        return true;
    }
    m_logger.error(QStringLiteral("Could not register the %1 shortcut (status %2) - most likely another app holds it")
                       .arg(rawValue(action))
                       .arg(reference.error()));
    return false;
}

void GlobalHotkeyController::unregister(ShortcutAction action)
{
    m_hotKeyRefs.erase(action);
}

void GlobalHotkeyController::unregisterAll()
{
    m_hotKeyRefs.clear();
}

void GlobalHotkeyController::setOnAvailabilityChanged(std::function<void(ShortcutAction, bool)> handler)
{
    m_onAvailabilityChanged = std::move(handler);
}

void GlobalHotkeyController::hotKeyPressed(HotKeyIdentifier identifier)
{
    // It may have been on its way when the action was unregistered.
    if (const auto action = actionOf(identifier); action && m_hotKeyRefs.contains(*action))
        m_onPressed(*action);
}

void GlobalHotkeyController::hotKeyAvailabilityChanged(HotKeyIdentifier identifier, bool isAvailable)
{
    const auto action = actionOf(identifier);
    if (!action || !m_hotKeyRefs.contains(*action))
        return;
    if (!isAvailable)
        m_logger.error(QStringLiteral("The %1 shortcut does not work any more - most likely another app holds it")
                           .arg(rawValue(*action)));
    if (m_onAvailabilityChanged)
        m_onAvailabilityChanged(*action, isAvailable);
}

}
