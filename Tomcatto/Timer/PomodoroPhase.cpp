#include "Timer/PomodoroPhase.h"

namespace tomcatto {

QString rawValue(PomodoroPhase phase)
{
    switch (phase) {
    case PomodoroPhase::idle:
        return QStringLiteral("idle");
    case PomodoroPhase::working:
        return QStringLiteral("work");
    case PomodoroPhase::shortBreak:
        return QStringLiteral("shortBreak");
    case PomodoroPhase::longBreak:
        return QStringLiteral("longBreak");
    }
    return {};
}

std::optional<PomodoroPhase> phaseFromRawValue(QStringView text)
{
    for (const PomodoroPhase phase :
         {PomodoroPhase::idle, PomodoroPhase::working, PomodoroPhase::shortBreak, PomodoroPhase::longBreak}) {
        if (text == rawValue(phase))
            return phase;
    }
    return std::nullopt;
}

}
