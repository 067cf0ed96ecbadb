#pragma once

#include "Platform/Ports/ApplicationPlatform.h"
#include "Statistics/StatsReport.h"

namespace tomcatto {

/// The figures of a report as people read them in a terminal, in English: one to a line with aligned values, and the
/// range's chart with a bar to a line that fits the display.
[[nodiscard]] QString statsTable(const StatsReport &report, const OutputDisplay &display);

}
