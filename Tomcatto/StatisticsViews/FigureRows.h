#pragma once

#include "StatisticsViews/StatisticsSources.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// A length of focus in short; from 100 hours on without minutes.
[[nodiscard]] QString focusText(const LocalizedStrings &strings, qint64 minutes);

/// Focus time, sessions, streak and daily average of the range, each {label, parts, caption, tip, name}: a part is
/// {text, isUnit}, the tip holds what has no room and may be empty, and a screen reader says the name.
[[nodiscard]] QVariantList figureRows(const StatisticsSources &sources, StatsRange range, StatisticsForm form);

}
