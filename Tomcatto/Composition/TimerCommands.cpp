#include "Composition/TimerCommands.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

struct Operation
{
    const char *name;
    bool (*perform)(PomodoroStateMachine &machine);
    /// Why it does not apply while a phase is under way; null where it always does then.
    const char *(*reason)(const PomodoroStateMachine &machine);
};

const char *startReason(const PomodoroStateMachine &machine)
{
    return machine.isPaused() ? "The phase is paused; use resume." : "A phase is already running.";
}

const char *takeBreakReason(const PomodoroStateMachine &machine)
{
    return isBreak(machine.currentPhase()) ? "The break is already running."
                                           : "The focus phase is not in overtime; use skip to end it.";
}

constexpr Operation operations[] = {
    {"start", [](auto &machine) { return machine.isPhasePending() ? machine.resume() : machine.start(); }, startReason},
    {"pause", [](auto &machine) { return machine.pause(); }, [](auto &) { return "The phase is already paused."; }},
    {"resume", [](auto &machine) { return machine.resume(); }, [](auto &) { return "The phase is not paused."; }},
    {"toggle", toggleTimer, nullptr},
    {"skip", [](auto &machine) { return machine.skip(); }, nullptr},
    {"take-break", [](auto &machine) { return machine.takeBreak(); }, takeBreakReason},
    {"extend", [](auto &machine) { return machine.extend(extensionSeconds); },
     [](auto &) { return "The phase has no time left to extend."; }},
    {"reset", [](auto &machine) { return machine.reset(); }, nullptr},
};

}

bool toggleTimer(PomodoroStateMachine &machine)
{
    if (machine.currentPhase() == PomodoroPhase::idle)
        return machine.start();
    return machine.isPaused() ? machine.resume() : machine.pause();
}

void addTimerCommands(CommandTable &table, PomodoroStateMachine &machine, const StatusSource &status)
{
    for (const Operation &operation : operations) {
        table.add(QString::fromLatin1(operation.name), [&machine, &status, operation](const Json &) {
            if (operation.perform(machine))
                return controlReply(ExitStatus::done, rendered(status.status(), StatusFormat::text));
            const bool isIdle = machine.currentPhase() == PomodoroPhase::idle;
            return controlReply(
                ExitStatus::notApplicable,
                QString::fromLatin1(isIdle || !operation.reason ? "No phase is running." : operation.reason(machine)));
        });
    }
    table.add(QStringLiteral("status"), [&status](const Json &) {
        return ControlReply{ExitStatus::done, {}, toJson(status.status())};
    });
}

}
