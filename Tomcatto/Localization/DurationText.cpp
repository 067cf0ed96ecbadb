#include "Localization/DurationText.h"

namespace tomcatto {

QString durationText(const LocalizedStrings &strings, qint64 seconds, bool withSeconds)
{
    seconds = std::max<qint64>(0, seconds);
    const qint64 rest = seconds % 60;
    QString secondsText = strings.format(QStringLiteral("duration.seconds"), rest);
    if (seconds < 60 && rest > 0)
        return secondsText;

    const qint64 hours = seconds / 3600;
    const qint64 minutes = seconds / 60 % 60;
    QString text = hours == 0     ? strings.format(QStringLiteral("duration.minutes"), minutes)
                   : minutes == 0 ? strings.format(QStringLiteral("duration.hours"), hours)
                                  : strings.format(QStringLiteral("duration.hours_minutes"), hours, minutes);
    return withSeconds && rest > 0 ? strings.format(QStringLiteral("duration.spoken.join"), text, secondsText) : text;
}

}
