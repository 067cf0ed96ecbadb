#pragma once

#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/HotKeys.h"
#include "Shortcuts/KeyCombo.h"
#include "Shortcuts/ShortcutAction.h"

#include <map>

namespace tomcatto {

/// Registers actions with the system's hot keys and turns presses back into actions. It gives back all of them when it
/// goes. Main thread only.
class GlobalHotkeyController final : private HotKeysDelegate
{
public:
    /// @param hotKeys outlives the controller, which is its only user.
    /// @param strings name the actions to people; outlive it too.
    /// @param onPressed is called with the action of each press.
    GlobalHotkeyController(HotKeys &hotKeys, const LocalizedStrings &strings,
                           std::function<void(ShortcutAction)> onPressed);
    GlobalHotkeyController(const GlobalHotkeyController &) = delete;
    GlobalHotkeyController &operator=(const GlobalHotkeyController &) = delete;
    ~GlobalHotkeyController() override;

    /// Gives an action this combination and no other. @return whether the system took it
    bool registerAction(ShortcutAction action, const KeyCombo &combo);
    void unregister(ShortcutAction action);
    void unregisterAll();
    /// Calls `handler` when the system refuses a registration later on, or takes it after all.
    void setOnAvailabilityChanged(std::function<void(ShortcutAction, bool isAvailable)> handler);

private:
    void hotKeyPressed(HotKeyIdentifier identifier) override;
    void hotKeyAvailabilityChanged(HotKeyIdentifier identifier, bool isAvailable) override;

    HotKeys &m_hotKeys;
    const LocalizedStrings &m_strings;
    std::function<void(ShortcutAction)> m_onPressed;
    std::function<void(ShortcutAction, bool)> m_onAvailabilityChanged;
    std::map<ShortcutAction, Cancellable> m_hotKeyRefs;
    const Logger m_logger{QStringLiteral("GlobalHotkey")};
};

}
