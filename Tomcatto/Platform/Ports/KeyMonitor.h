#pragma once

#include "Foundation/Cancellable.h"
#include "Platform/Ports/KeyModifiers.h"

#include <optional>
#include <QtCore/Qt>

namespace tomcatto {

/// One press of a key.
struct KeyPress
{
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    /// Virtual key code of its place on the keyboard; nothing for keys without one, such as modifiers by themselves.
    std::optional<quint16> keyCode = {};
    /// The same modifiers as combinations are stored with.
    KeyModifiers heldModifiers = {};
    /// Whether the keyboard repeats a key that is held.
    bool isRepeat = false;

    bool operator==(const KeyPress &) const = default;
};

/// The keys that go to the application's own windows, seen before the windows see them. Main thread only.
class KeyMonitor
{
public:
    virtual ~KeyMonitor() = default;

    /// Takes presses away from the windows and tells `handler` of them, until the result is cancelled, which the
    /// handler itself may do.
    /// @param key the one that is taken, with or without modifiers; every one where there is none
    [[nodiscard]] virtual Cancellable onKeyDown(std::optional<Qt::Key> key,
                                                std::function<void(const KeyPress &)> handler) = 0;
};

}
