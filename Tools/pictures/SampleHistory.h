#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <vector>

namespace tomcatto {

/// Phases of 25 minutes on most of the days up to `now`, by their start, the same ones each time.
/// @param days how far back
inline std::vector<CompletedWorkStamp> samplePhases(Date now, int days)
{
    constexpr int lastDays[] = {5, 6, 1, 2, 5, 6, 4};
    std::vector<CompletedWorkStamp> stamps;
    for (int day = days; day >= 0; --day) {
        const int phases = day < 7 ? lastDays[day] : (day * 7 + day / 3) % 9;
        for (int phase = phases - 1; phase >= 0; --phase)
            stamps.push_back({now - Seconds(86400.0 * day + 1800.0 * phase), 1500});
    }
    return stamps;
}

}
