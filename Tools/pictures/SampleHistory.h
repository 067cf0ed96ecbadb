#pragma once

#include "Foundation/Date.h"

namespace tomcatto {

/// Hands the starts of phases of 25 minutes on most of the days up to `now`, the same ones each time, to `add`.
/// @param days how far back
template<typename Add>
void fillHistory(Date now, int days, const Add &add)
{
    constexpr int lastDays[] = {5, 6, 1, 2, 5, 6, 4};
    for (int day = days; day >= 0; --day) {
        const int phases = day < 7 ? lastDays[day] : (day * 7 + day / 3) % 9;
        for (int phase = phases - 1; phase >= 0; --phase)
            add(now - Seconds(86400.0 * day + 1800.0 * (phase + 1)));
    }
}

}
