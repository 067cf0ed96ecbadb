#include "Composition/TimerCommands.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

QString idleReason()
{
    return QStringLiteral("No phase is running.");
}

QString startReason(const PomodoroStateMachine &machine)
{
    return machine.isPaused() ? QStringLiteral("The phase is paused; use resume.")
                              : QStringLiteral("A phase is already running.");
}

QString pauseReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason()
                                                         : QStringLiteral("The phase is already paused.");
}

QString resumeReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason() : QStringLiteral("The phase is not paused.");
}

QString takeBreakReason(const PomodoroStateMachine &machine)
{
    if (machine.currentPhase() == PomodoroPhase::idle)
        return idleReason();
    return isBreak(machine.currentPhase()) ? QStringLiteral("The break is already running.")
                                           : QStringLiteral("The focus phase is not in overtime; use skip to end it.");
}

QString extendReason(const PomodoroStateMachine &machine)
{
    return machine.currentPhase() == PomodoroPhase::idle ? idleReason()
                                                         : QStringLiteral("The phase has no time left to extend.");
}

bool startOrResume(PomodoroStateMachine &machine)
{
    return machine.isPhasePending() ? machine.resume() : machine.start();
}

bool toggle(PomodoroStateMachine &machine)
{
    if (machine.currentPhase() == PomodoroPhase::idle)
        return machine.start();
    return machine.isPaused() ? machine.resume() : machine.pause();
}

}

void addTimerCommands(CommandTable &table, AppDependencies &dependencies, const StatusSource &status)
{
    PomodoroStateMachine &machine = dependencies.stateMachine;
    const auto addOperation = [&](const QString &name, std::function<bool()> operation,
                                  std::function<QString()> reason) {
        table.add(name, [operation = std::move(operation), reason = std::move(reason), &status](const Json &) {
            if (!operation())
                return controlReply(ExitStatus::notApplicable, reason());
            return ControlReply{ExitStatus::done, rendered(status.status(), StatusFormat::text), {}};
        });
    };
    addOperation(
        QStringLiteral("start"), [&machine] { return startOrResume(machine); },
        [&machine] { return startReason(machine); });
    addOperation(
        QStringLiteral("pause"), [&machine] { return machine.pause(); }, [&machine] { return pauseReason(machine); });
    addOperation(
        QStringLiteral("resume"), [&machine] { return machine.resume(); },
        [&machine] { return resumeReason(machine); });
    addOperation(
        QStringLiteral("toggle"), [&machine] { return toggle(machine); }, idleReason);
    addOperation(
        QStringLiteral("skip"), [&machine] { return machine.skip(); }, idleReason);
    addOperation(
        QStringLiteral("take-break"), [&machine] { return machine.takeBreak(); },
        [&machine] { return takeBreakReason(machine); });
    addOperation(
        QStringLiteral("extend"), [&machine] { return machine.extend(extensionSeconds); },
        [&machine] { return extendReason(machine); });
    addOperation(
        QStringLiteral("reset"), [&machine] { return machine.reset(); }, idleReason);
    table.add(QStringLiteral("status"), [&status](const Json &) {
        return ControlReply{ExitStatus::done, {}, toJson(status.status())};
    });
}

}
