#pragma once

#include "Localization/LocalizedStrings.h"

namespace tomcatto {

/// A length of time in words, for example "16 minutes 12 seconds". Parts that are zero are left out, but for "0
/// seconds".
/// @param seconds whole seconds; negative values count as 0.
[[nodiscard]] QString spokenDuration(const LocalizedStrings &strings, qint64 seconds);

}
