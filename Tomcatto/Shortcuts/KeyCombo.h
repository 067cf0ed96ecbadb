#pragma once

#include "Platform/Ports/KeyModifiers.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>

namespace tomcatto {

/// A key with the modifiers held beside it. A value.
struct KeyCombo
{
    KeyCombo() = default;
    /// @param flags those that no combination has, such as the caps lock, are dropped.
    KeyCombo(quint16 code, KeyModifiers flags);

    /// Virtual key code: a place on the keyboard, by the US layout (0 is A, 49 the space bar).
    quint16 keyCode = 0;
    KeyModifiers modifierFlags;

    bool operator==(const KeyCombo &) const = default;
};

/// An object with the members "keyCode" and "modifierFlags", both whole numbers.
[[nodiscard]] nlohmann::ordered_json encoded(const KeyCombo &combo);
/// `nullopt` if it is not such an object; further members do not matter.
[[nodiscard]] std::optional<KeyCombo> decodedKeyCombo(const nlohmann::ordered_json &object);

}
