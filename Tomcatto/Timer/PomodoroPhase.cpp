#include "Timer/PomodoroPhase.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

constexpr std::array phaseTexts{"idle", "work", "shortBreak", "longBreak"};

}

QString rawValue(PomodoroPhase phase)
{
    return textOf(phaseTexts, phase);
}

std::optional<PomodoroPhase> phaseFromRawValue(QStringView text)
{
    return caseOf<PomodoroPhase>(phaseTexts, text);
}

QString rawValue(PhaseExitReason reason)
{
    return textOf(std::array{"started", "completed", "skipped", "reset", "terminated"}, reason);
}

}
