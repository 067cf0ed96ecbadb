#pragma once

#include <optional>
#include <QtCore/QRect>
#include <QtCore/QSize>

namespace tomcatto {

/// Where a popover of `size` goes, in logical pixels: below the item, above it where the item is in the lower half of
/// the screen, at least 8 from the edges of `available`. Without an item centred at the top. Where it does not fit, its
/// upper left corner stays inside.
[[nodiscard]] QRect popoverRectangle(QSize size, std::optional<QRect> item, QRect available);

/// Where a menu of `size` goes that is opened at `place`, in logical pixels: to the right and below, else to the other
/// side, as far as it fits into `available`.
[[nodiscard]] QRect menuRectangle(QSize size, QPoint place, QRect available);

}
