#include "CommandLine/CommandRunner.h"

#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Statistics/EmptySessionHistory.h"
#include "Statistics/RepositorySessionHistory.h"
#include "Statistics/StatsAggregator.h"
#include "Statistics/StatsReport.h"

#include <QtCore/QFileInfo>
#include <QtCore/QThread>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

// An application that is starting or ending holds the lock but does not answer; it is given this long.
constexpr int patienceMilliseconds = 5000;
constexpr int retryMilliseconds = 20;

}

CommandRunner::CommandRunner(CommandSurroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_client(m_surroundings.controlSocket)
{
}

ExitStatus CommandRunner::run(const Invocation &invocation) const
{
    switch (invocation.action) {
    case Invocation::Action::application:
    case Invocation::Action::print:
        m_surroundings.print(invocation.text);
        return ExitStatus::done;
    case Invocation::Action::remote:
        return runRemote(invocation);
    case Invocation::Action::status:
        return runStatus(invocation);
    case Invocation::Action::stats:
        return runStats(invocation);
    case Invocation::Action::settingsList:
        return listSettings();
    case Invocation::Action::settingsGet:
        return getSetting(invocation);
    case Invocation::Action::settingsSet:
        return setSetting(invocation);
    }
    return ExitStatus::usage;
}

ExitStatus CommandRunner::activateRunning() const
{
    for (int waited = 0; waited < patienceMilliseconds; waited += retryMilliseconds) {
        const ControlReply reply = m_client.send({QStringLiteral("activate"), {}, false});
        if (reply.status != ExitStatus::notRunning)
            return report(reply);
        QThread::msleep(retryMilliseconds);
    }
    m_surroundings.printError(QStringLiteral("Tomcatto is already running, but it does not answer."));
    return ExitStatus::done;
}

ExitStatus CommandRunner::runRemote(const Invocation &invocation) const
{
    const ControlReply reply = m_client.send({invocation.command, invocation.arguments, false});
    const ExitStatus status = report(reply);
    if (status == ExitStatus::done && invocation.command == QStringLiteral("quit"))
        waitForEnd();
    return status;
}

ExitStatus CommandRunner::runStatus(const Invocation &invocation) const
{
    QString problem;
    const auto show = [this, &invocation, &problem](const ControlReply &reply) {
        const auto status = timerStatusFromJson(reply.result);
        if (!status) {
            problem = status.error();
            return false;
        }
        return m_surroundings.print(rendered(*status, invocation.format));
    };
    const ControlRequest request{QStringLiteral("status"), Json::object(), invocation.isFollowing};
    ControlReply reply;
    if (invocation.isFollowing) {
        reply = m_client.follow(request, show);
    } else {
        reply = m_client.send(request);
        if (reply.status == ExitStatus::done)
            show(reply);
    }
    if (!problem.isEmpty())
        return report(controlReply(ExitStatus::failed, problem));
    reply.message = reply.status == ExitStatus::done ? QString() : reply.message;
    return report(reply);
}

ExitStatus CommandRunner::runStats(const Invocation &invocation) const
{
    // The store is read in place, also beside a running application. Where there is none yet, none is made.
    const auto &support = m_surroundings.applicationSupportDirectory;
    std::optional<CoreDataStack> stack;
    std::optional<SessionRepository> repository;
    std::unique_ptr<SessionHistory> history = std::make_unique<EmptySessionHistory>();
    if (!support || QFileInfo::exists(CoreDataStack::storePath(*support))) {
        stack.emplace(support);
        repository.emplace(*stack, m_surroundings.wallClock);
        history = std::make_unique<RepositorySessionHistory>(*repository);
    }
    const auto defaults = m_surroundings.openDefaults(true);
    const PomodoroSettings settings(*defaults);
    const StatsAggregator aggregator(*history, m_surroundings.wallClock);
    const StatsReport figures = gatherStatsReport(aggregator, invocation.range, settings.dailyGoalPomodoros());
    const QString text = invocation.isJson ? QString::fromStdString(toJson(figures).dump()) : toText(figures).trimmed();
    m_surroundings.print(text);
    return ExitStatus::done;
}

ExitStatus CommandRunner::listSettings() const
{
    const ControlReply reply = m_client.send({QStringLiteral("settings"), Json::object(), false});
    if (reply.status == ExitStatus::done && reply.result.is_object()) {
        for (const auto &[key, value] : reply.result.items())
            m_surroundings.print(QString::fromStdString(key + ' ' + value.get<std::string>()));
        return ExitStatus::done;
    }
    if (reply.status != ExitStatus::notRunning)
        return report(reply);
    const auto defaults = m_surroundings.openDefaults(true);
    const PomodoroSettings settings(*defaults);
    for (const SettingDescriptor &setting : settingDescriptors())
        m_surroundings.print(PomodoroSettings::keyText(setting.key) + QLatin1Char(' ') +
                             settingText(settings, setting.key));
    return ExitStatus::done;
}

ExitStatus CommandRunner::getSetting(const Invocation &invocation) const
{
    const std::string key = PomodoroSettings::keyText(invocation.setting->key).toStdString();
    const ControlReply reply = m_client.send({QStringLiteral("settings"), Json{{"key", key}}, false});
    if (reply.status == ExitStatus::done && reply.result.is_string()) {
        m_surroundings.print(QString::fromStdString(reply.result.get<std::string>()));
        return ExitStatus::done;
    }
    if (reply.status != ExitStatus::notRunning)
        return report(reply);
    const auto defaults = m_surroundings.openDefaults(true);
    m_surroundings.print(settingText(PomodoroSettings(*defaults), invocation.setting->key));
    return ExitStatus::done;
}

ExitStatus CommandRunner::setSetting(const Invocation &invocation) const
{
    const std::string key = PomodoroSettings::keyText(invocation.setting->key).toStdString();
    const Json arguments{{"key", key}, {"value", invocation.text.toStdString()}};
    for (int waited = 0; waited < patienceMilliseconds; waited += retryMilliseconds) {
        const ControlReply reply = m_client.send({QStringLiteral("settings"), arguments, false});
        if (reply.status != ExitStatus::notRunning)
            return report(reply);
        if (const auto status = setSettingInFile(invocation))
            return *status;
        QThread::msleep(retryMilliseconds);
    }
    m_surroundings.printError(QStringLiteral("Another Tomcatto holds the settings and does not answer."));
    return ExitStatus::failed;
}

std::optional<ExitStatus> CommandRunner::setSettingInFile(const Invocation &invocation) const
{
    if (m_surroundings.instanceLock.tryTake() == InstanceLockResult::held)
        return std::nullopt;
    const auto defaults = m_surroundings.openDefaults(false);
    PomodoroSettings settings(*defaults);
    applySetting(settings, invocation.setting->key, *parseSetting(*invocation.setting, invocation.text));
    const bool isStored = defaults->synchronize();
    m_surroundings.instanceLock.release();
    if (isStored)
        return ExitStatus::done;
    m_surroundings.printError(QStringLiteral("The settings file cannot be written."));
    return ExitStatus::failed;
}

ExitStatus CommandRunner::report(const ControlReply &reply) const
{
    if (reply.message.isEmpty())
        return reply.status;
    if (reply.status == ExitStatus::done)
        m_surroundings.print(reply.message);
    else
        m_surroundings.printError(reply.message);
    return reply.status;
}

void CommandRunner::waitForEnd() const
{
    for (int waited = 0; waited < patienceMilliseconds; waited += retryMilliseconds) {
        if (m_surroundings.instanceLock.tryTake() != InstanceLockResult::held)
            return m_surroundings.instanceLock.release();
        QThread::msleep(retryMilliseconds);
    }
}

}
