#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// A text of no real language for tests of layouts: in brackets, its letters accented, and 40 % longer. Placeholders
/// stay as they are.
[[nodiscard]] QString pseudoText(const QString &text);

}
