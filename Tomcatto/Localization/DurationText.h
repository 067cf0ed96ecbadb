#pragma once

#include "Localization/LocalizedStrings.h"

namespace tomcatto {

/// A length of time in short: "2 h 10 min", "25 min", "5 s". From a minute on, seconds show only with `withSeconds`.
/// @param seconds whole seconds; negative values count as 0.
[[nodiscard]] QString durationText(const LocalizedStrings &strings, qint64 seconds, bool withSeconds = false);

}
