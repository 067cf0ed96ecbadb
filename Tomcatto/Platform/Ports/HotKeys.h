#pragma once

#include "Foundation/Cancellable.h"
#include "Platform/Ports/KeyModifiers.h"

#include <expected>
#include <QtCore/QString>

namespace tomcatto {

/// Whether keys can be taken while another application is in front.
enum class HotKeySupport {
    works,
    /// The desktop asks the user first, and has not done so or was told no.
    notAsked,
    none,
};

/// What the application calls one of its hot keys.
struct HotKeyIdentifier
{
    /// Four characters, the first one the highest byte.
    quint32 signature = 0;
    quint32 id = 0;

    bool operator==(const HotKeyIdentifier &) const = default;
};

/// A combination that is wanted.
struct HotKeyRequest
{
    HotKeyIdentifier identifier;
    /// Virtual key code: a place on the keyboard, whatever is printed there.
    quint16 keyCode = 0;
    KeyModifiers modifiers;
    /// What it does, for people, whom some desktops ask.
    QString description;
};

/// Is told of hot keys, on the main thread in turns of the main loop of their own.
class HotKeysDelegate
{
public:
    virtual ~HotKeysDelegate() = default;

    /// Its keys were pressed; once, however long they are held.
    virtual void hotKeyPressed(HotKeyIdentifier identifier) = 0;
    /// A registration that was accepted does not work, or works again: the desktop decided later, or keys changed
    /// hands.
    virtual void hotKeyAvailabilityChanged(HotKeyIdentifier identifier, bool isAvailable) = 0;
};

/// Combinations of keys that reach the application whichever window has the keyboard. Main thread only; nothing waits
/// for the user.
class HotKeys
{
public:
    virtual ~HotKeys() = default;

    [[nodiscard]] virtual HotKeySupport support() const = 0;
    /// Calls `handler` whenever `support` has changed.
    [[nodiscard]] virtual Cancellable onSupportChanged(std::function<void()> handler) = 0;
    /// Who is told; null for nobody.
    virtual void setDelegate(HotKeysDelegate *delegate) = 0;
    /// Takes a combination until the result is cancelled. Without support it is accepted, and nothing comes.
    /// @return the system's own number for the reason where it is refused, as when another program or another hot key
    /// of this one holds it; the desktop may also refuse later
    [[nodiscard]] virtual std::expected<Cancellable, int> registerHotKey(const HotKeyRequest &request) = 0;
};

}
