#include "BreakOverlay/BreakContent.h"

#include "StatusPill/StatusPillSource.h"

#include <algorithm>

namespace tomcatto {
namespace {

QString spokenDuration(const LocalizedStrings &strings, qint64 seconds)
{
    QString rest = strings.plural(QStringLiteral("duration.spoken.seconds"), seconds % 60);
    if (seconds < 60)
        return rest;
    const QString minutes = strings.plural(QStringLiteral("duration.spoken.minutes"), seconds / 60);
    return seconds % 60 == 0 ? minutes : strings.format(QStringLiteral("duration.spoken.join"), minutes, rest);
}

}

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
