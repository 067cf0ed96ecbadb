#include "Localization/SpokenDuration.h"

#include <algorithm>

namespace tomcatto {

QString spokenDuration(const LocalizedStrings &strings, qint64 seconds)
{
    const qint64 whole = std::max<qint64>(seconds, 0);
    QString spoken;
    const auto add = [&](qint64 count, const QString &key) {
        if (count == 0)
            return;
        const QString part = strings.plural(key, count);
        spoken = spoken.isEmpty() ? part : strings.format(QStringLiteral("duration.spoken.join"), spoken, part);
    };
    add(whole / 3600, QStringLiteral("duration.spoken.hours"));
    add(whole % 3600 / 60, QStringLiteral("duration.spoken.minutes"));
    add(whole % 60, QStringLiteral("duration.spoken.seconds"));
    return spoken.isEmpty() ? strings.plural(QStringLiteral("duration.spoken.seconds"), 0) : spoken;
}

}
