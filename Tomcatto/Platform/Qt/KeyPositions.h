#pragma once

#include <optional>
#include <QtCore/QtGlobal>

namespace tomcatto::keyPositions {

/// The virtual key code of a key by the number that X servers and Wayland compositors give its place; nothing for
/// modifiers and for keys that have none.
[[nodiscard]] std::optional<quint16> virtualKey(quint32 scanCode);
/// The other way round.
[[nodiscard]] std::optional<quint8> scanCode(quint16 virtualKey);

}
