#pragma once

#include <QtCore/QFlags>

namespace tomcatto {

/// A key that is held together with another one. The values are those of stored combinations.
enum class KeyModifier : quint32 {
    shift = 0x20000,
    control = 0x40000,
    /// Alt, on keyboards that say so.
    option = 0x80000,
    /// Super, or the key with a logo, on other keyboards.
    command = 0x100000,
};
Q_DECLARE_FLAGS(KeyModifiers, KeyModifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(KeyModifiers)

}
