#pragma once

#include "Platform/Ports/UserDefaults.h"
#include "Shortcuts/GlobalHotkeyController.h"

#include <QtCore/QObject>
#include <set>

namespace tomcatto {

/// The combinations of the actions: keeps them in the user defaults and the system's hot keys up to date with them.
/// Main thread only.
class ShortcutsService final : public QObject
{
    Q_OBJECT

public:
    /// Loads the bindings; what cannot be read counts as none. @param defaults outlive the service.
    explicit ShortcutsService(UserDefaults &defaults, QObject *parent = nullptr);

    [[nodiscard]] std::optional<KeyCombo> binding(ShortcutAction action) const;
    [[nodiscard]] bool hasBindings() const { return !m_bindings.empty(); }
    /// Takes the place of an earlier one.
    void setBinding(ShortcutAction action, const KeyCombo &combo);
    void clearBinding(ShortcutAction action);
    /// Whether the system refuses the action's combination.
    [[nodiscard]] bool isUnavailable(ShortcutAction action) const { return m_unavailable.contains(action); }

    /// From now on the bindings work from anywhere.
    void attach(std::unique_ptr<GlobalHotkeyController> controller);
    /// Tries again what the system has refused.
    void apply();
    /// Lets no combination act, so that one can be recorded.
    void suspend() { setSuspended(true); }
    void resume() { setSuspended(false); }
    [[nodiscard]] bool isSuspended() const noexcept { return m_isSuspended; }

Q_SIGNALS:
    /// Bindings, or which of them work.
    void changed();

private:
    void load();
    void save();
    void setSuspended(bool isSuspended);
    void noteAvailability(ShortcutAction action, bool isAvailable);

    UserDefaults &m_defaults;
    std::map<ShortcutAction, KeyCombo> m_bindings;
    std::set<ShortcutAction> m_unavailable;
    std::unique_ptr<GlobalHotkeyController> m_controller;
    bool m_isSuspended = false;
    const Logger m_logger{QStringLiteral("Shortcuts")};
};

}
