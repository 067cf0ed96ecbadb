#include "CommandLine/CommandRunner.h"

#include "CommandLine/Doctor.h"
#include "CommandLine/ProgressBar.h"
#include "CommandLine/VideoList.h"
#include "Composition/HistoryCommands.h"
#include "Persistence/CoreDataStack.h"
#include "Publishing/LibraryPublisher.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <utility>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

// An application that is starting or ending holds the lock but does not answer; it is given this long.
constexpr int patienceMilliseconds = 5000;
constexpr int retryMilliseconds = 20;
constexpr int watchMilliseconds = 100;
// Looking into a video file that is being added takes its time, and so does a server that does not answer.
constexpr std::chrono::seconds longestOperation{45};
// So do the largest files that are imported.
constexpr std::chrono::minutes longestImport{2};

/// How long the application may take for a change.
std::chrono::milliseconds patienceFor(const QString &command)
{
    if (command == QStringLiteral("history"))
        return longestImport;
    const bool isShort = command == QStringLiteral("settings") || command == QStringLiteral("manners");
    return isShort ? std::chrono::milliseconds(patienceMilliseconds) : longestOperation;
}

/// A text as it is, everything else as JSON writes it.
std::string valueText(const Json &value)
{
    return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The application has a working folder of its own.
Json absolutePaths(Json arguments)
{
    if (const auto path = arguments.find("path"); path != arguments.end())
        *path = QFileInfo(QString::fromStdString(path->get<std::string>())).absoluteFilePath().toStdString();
    return arguments;
}

}

CommandRunner::CommandRunner(CommandSurroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_client(m_surroundings.localSockets, m_surroundings.controlSockets)
    , m_files(m_surroundings)
    , m_reports(m_surroundings)
{
}

ExitStatus CommandRunner::run(const Invocation &invocation) const
{
    switch (invocation.action) {
    case Invocation::Action::application:
    case Invocation::Action::widget:
    case Invocation::Action::print:
        return print(invocation.text);
    case Invocation::Action::remote:
        return runRemote(invocation);
    case Invocation::Action::status:
        return runStatus(invocation);
    case Invocation::Action::stats:
        return report(m_reports.stats(invocation));
    case Invocation::Action::exportSessions:
        return report(m_reports.exportSessions(invocation));
    case Invocation::Action::historyList:
        return report(m_reports.list(invocation));
    case Invocation::Action::historyBackup:
        return report(m_reports.backUp(invocation));
    case Invocation::Action::historyRestore:
        return restoreHistory(invocation);
    case Invocation::Action::show:
        return show(invocation);
    case Invocation::Action::shortcutsList:
        return listShortcuts(invocation);
    case Invocation::Action::videosList:
        return report(VideoList(m_surroundings, m_client, m_files).reply());
    case Invocation::Action::change:
        return change(invocation);
    case Invocation::Action::doctor:
        return Doctor(m_surroundings, m_client).report(invocation.isJson);
    case Invocation::Action::publish:
        return publish(invocation);
    case Invocation::Action::videosDownload:
        return downloadVideo(invocation);
    }
    return ExitStatus::usage;
}

std::optional<ExitStatus> CommandRunner::becomeApplication(const std::function<bool()> &become) const
{
    bool hasSaidSo = false;
    for (QDeadlineTimer until(patienceMilliseconds); !become(); QThread::msleep(retryMilliseconds)) {
        const auto reply = m_client.ask({QStringLiteral("activate"), {}, false}, until);
        // One that is ending says so, or hangs up.
        if (reply && reply->status != ExitStatus::notRunning)
            return report(*reply);
        if (!until.hasExpired())
            continue;
        // A command that downloads has the files without listening; it ends, however long it takes.
        if (reply != std::unexpected(NoAnswer::nobodyListens))
            return report(controlReply(ExitStatus::notApplicable,
                                       QStringLiteral("Tomcatto is already running, but it does not answer.")));
        until.setRemainingTime(patienceMilliseconds);
        if (!std::exchange(hasSaidSo, true))
            static_cast<void>(report(
                controlReply(ExitStatus::notApplicable,
                             QStringLiteral("Another command has the files; Tomcatto starts when it is done."))));
    }
    return std::nullopt;
}

ExitStatus CommandRunner::runRemote(const Invocation &invocation) const
{
    const auto answer =
        m_client.ask({invocation.command, invocation.arguments, false}, QDeadlineTimer(longestOperation));
    const bool isQuit = invocation.command == QStringLiteral("quit");
    // One that is ending already quits as it was asked to.
    const bool wasEnding = isQuit && answer == std::unexpected(NoAnswer::hungUp);
    const ExitStatus status = wasEnding ? ExitStatus::done : report(answer ? *answer : controlReply(answer.error()));
    if (isQuit && status == ExitStatus::done)
        waitForEnd();
    return status;
}

ExitStatus CommandRunner::runStatus(const Invocation &invocation) const
{
    QString problem;
    auto outcome = PrintOutcome::printed;
    const auto show = [this, &invocation, &problem, &outcome](const ControlReply &reply) {
        const auto status = timerStatusFromJson(reply.result);
        if (!status) {
            problem = status.error();
            return false;
        }
        outcome = m_surroundings.print(rendered(*status, invocation.format));
        return outcome == PrintOutcome::printed;
    };
    const ControlRequest request{QStringLiteral("status"), Json::object(), invocation.isFollowing,
                                 invocation.wantsTicks};
    ControlReply reply;
    if (invocation.isFollowing) {
        reply = m_client.follow(request, show);
    } else {
        reply = m_client.send(request);
        if (reply.status == ExitStatus::done)
            show(reply);
    }
    if (outcome == PrintOutcome::failed)
        return ExitStatus::failed;
    if (!problem.isEmpty())
        return report(controlReply(ExitStatus::failed, problem));
    reply.message = reply.status == ExitStatus::done ? QString() : reply.message;
    return report(reply);
}

ExitStatus CommandRunner::downloadVideo(const Invocation &invocation) const
{
    ProgressBar bar(m_surroundings);
    Json arguments = invocation.arguments;
    arguments["isWatched"] = true;
    ControlReply reply = change({invocation.command, arguments, false}, longestOperation,
                                [&bar](double fraction) { bar.show(fraction); });
    // The application downloads; this one looks how far it is.
    arguments["action"] = "progress";
    while (reply.status == ExitStatus::done && reply.result.contains("progress")) {
        bar.show(reply.result.value("progress", 0.0));
        QThread::msleep(watchMilliseconds);
        reply = m_client.send({invocation.command, arguments, false});
    }
    bar.end();
    return report(reply);
}

ExitStatus CommandRunner::change(const Invocation &invocation) const
{
    Json arguments = absolutePaths(invocation.arguments);
    if (invocation.command == QStringLiteral("history")) {
        arguments["zone"] = m_surroundings.wallClock.calendar().timeZone.id().toStdString();
        if (!arguments.contains("id"))
            arguments["id"] = identifierText(m_surroundings.identifiers.next()).toStdString();
    }
    return report(change({invocation.command, arguments, false}, patienceFor(invocation.command)));
}

ExitStatus CommandRunner::restoreHistory(const Invocation &invocation) const
{
    // Looking all through a copy takes its time, so the application only has to put in place what is made here.
    const auto prepared = m_files.prepareStore(invocation.text);
    if (!prepared)
        return report(replyTo(prepared));
    const Json arguments{{"action", "restore"}, {"path", prepared->toStdString()}};
    const ControlReply reply = change({QStringLiteral("history"), arguments, false}, longestOperation);
    QFile::remove(*prepared);
    return report(reply);
}

ExitStatus CommandRunner::show(const Invocation &invocation) const
{
    const ControlReply reply = read({invocation.command, invocation.arguments, false});
    if (reply.status != ExitStatus::done || reply.result.is_null())
        return report(reply);
    if (invocation.isJson || !reply.result.is_object())
        return print(QString::fromStdString(valueText(reply.result)));
    QStringList lines;
    for (const auto &[key, value] : reply.result.items())
        lines << QString::fromStdString(key + ' ' + valueText(value));
    return print(lines.join(QLatin1Char('\n')));
}

ExitStatus CommandRunner::listShortcuts(const Invocation &invocation) const
{
    const ControlReply reply = read({invocation.command, invocation.arguments, false});
    if (reply.status != ExitStatus::done || !reply.result.is_array())
        return report(reply);
    QStringList lines;
    for (const Json &line : reply.result) {
        QStringList columns{textArgument(line, "action"), QStringLiteral("-")};
        if (line.contains("combination"))
            columns = {columns.front(), textArgument(line, "combination"), textArgument(line, "symbols")};
        if (line.value("isUnavailable", false))
            columns << QStringLiteral("unavailable");
        lines << columns.join(QLatin1Char('\t'));
    }
    return print(lines.join(QLatin1Char('\n')));
}

ControlReply CommandRunner::read(const ControlRequest &request) const
{
    const auto answer = m_client.ask(request, QDeadlineTimer(patienceMilliseconds));
    if (answer)
        return *answer;
    return answer.error() == NoAnswer::silent ? controlReply(answer.error()) : m_files.read(request);
}

ControlReply CommandRunner::change(const ControlRequest &request, std::chrono::milliseconds patience,
                                   const std::function<void(double)> &onProgress) const
{
    const QDeadlineTimer until(patience);
    const Date asked = m_surroundings.wallClock.now();
    std::optional<Date> askedSince;
    do {
        const auto answer = m_client.ask(request, until);
        const bool isEnding = answer == std::unexpected(NoAnswer::hungUp);
        ControlReply reply = answer ? *answer : controlReply(answer.error());
        if (reply.status != ExitStatus::notRunning && !isEnding)
            return reply;
        if (isEnding)
            askedSince = asked;
        // A file that takes long to look into would keep the lock from an application that starts.
        if (const auto refusal = m_files.refusal(request))
            return *refusal;
        if (m_surroundings.instanceLock.tryTake() != InstanceLockResult::held) {
            ControlReply done = m_files.run(request, askedSince, onProgress);
            m_surroundings.instanceLock.release();
            return done;
        }
        QThread::msleep(retryMilliseconds);
    } while (!until.hasExpired());
    return controlReply(ExitStatus::failed,
                        QStringLiteral("Another Tomcatto holds the files and does not answer; try again."));
}

ExitStatus CommandRunner::publish(const Invocation &invocation) const
{
    const LibraryPublisher publisher(m_surroundings.clipStudio,
                                     [this](const QString &line) { static_cast<void>(m_surroundings.print(line)); });
    const auto published =
        publisher.publish({invocation.text, QUrl(invocation.baseUrl, QUrl::StrictMode), invocation.output});
    if (published)
        return print(QStringLiteral("%1 videos in %2").arg(*published).arg(invocation.output));
    return report(controlReply(published.error()));
}

ExitStatus CommandRunner::report(const ControlReply &reply) const
{
    if (reply.message.isEmpty())
        return reply.status;
    if (reply.status == ExitStatus::done)
        return print(reply.message);
    m_surroundings.printError(reply.message);
    return reply.status;
}

ExitStatus CommandRunner::print(const QString &text) const
{
    return m_surroundings.print(text) == PrintOutcome::failed ? ExitStatus::failed : ExitStatus::done;
}

void CommandRunner::waitForEnd() const
{
    QElapsedTimer waited;
    for (waited.start(); waited.elapsed() < patienceMilliseconds; QThread::msleep(retryMilliseconds)) {
        if (m_surroundings.instanceLock.tryTake() != InstanceLockResult::held)
            return m_surroundings.instanceLock.release();
    }
}

}
