#pragma once

#include "Unit/Statistics/ManualSessionHistory.h"

namespace tomcatto {

/// Fills a history with phases of 25 minutes on most of the days up to `now`, the same ones each time.
/// @param days how far back
inline void fillHistory(ManualSessionHistory &history, Date now, int days)
{
    constexpr int lastDays[] = {5, 6, 1, 2, 5, 6, 4};
    for (int day = days; day >= 0; --day) {
        const int phases = day < 7 ? lastDays[day] : (day * 7 + day / 3) % 9;
        for (int phase = phases - 1; phase >= 0; --phase)
            history.stamps.push_back({now - Seconds(86400.0 * day + 1800.0 * phase), 1500});
    }
    history.earliest = history.stamps.front().startedAt;
}

}
