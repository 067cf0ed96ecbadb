#pragma once

#include "Timer/NamedPreset.h"
#include "Timer/PomodoroPhase.h"

#include <QtCore/QVariantList>
#include <QtCore/QVariantMap>

namespace tomcatto {

/// One set in its order, drawn to scale by the views: each phase with its name and its seconds.
[[nodiscard]] inline QVariantList setSegments(const PresetDurations &lengths, int rounds)
{
    const auto segment = [](PomodoroPhase phase, qint64 seconds) {
        return QVariantMap{{QStringLiteral("phase"), rawValue(phase)}, {QStringLiteral("seconds"), seconds}};
    };
    QVariantList segments;
    for (int round = 1; round <= rounds; ++round) {
        segments.append(segment(PomodoroPhase::working, lengths.work));
        segments.append(round < rounds ? segment(PomodoroPhase::shortBreak, lengths.shortBreak)
                                       : segment(PomodoroPhase::longBreak, lengths.longBreak));
    }
    return segments;
}

}
