#include "BreakOverlay/BreakContent.h"

#include "Localization/SpokenDuration.h"
#include "StatusPill/StatusPillSource.h"

#include <algorithm>

namespace tomcatto {

void setCountdown(BreakContent &content, const LocalizedStrings &strings, qint64 remainingSeconds, qint64 totalSeconds)
{
    const qint64 remaining = std::max<qint64>(remainingSeconds, 0);
    const double total = static_cast<double>(std::max<qint64>(totalSeconds, 1));
    content.time = clockText(remaining);
    content.spokenTime =
        strings.format(QStringLiteral("breakoverlay.countdown.accessibility"), spokenDuration(strings, remaining));
    content.progress = std::min(static_cast<double>(remaining) / total, 1.0);
}

}
