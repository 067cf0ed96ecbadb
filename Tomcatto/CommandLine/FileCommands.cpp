#include "CommandLine/FileCommands.h"

#include "Composition/SettingsCommands.h"
#include "Composition/VideoCommands.h"
#include "Media/VideoFileValidator.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QEventLoop>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

/// Runs a command, and the main loop until it has answered.
ControlReply answerOf(const CommandTable &commands, const QString &name, const nlohmann::ordered_json &arguments)
{
    QEventLoop waiting;
    std::optional<ControlReply> answer;
    commands.run(name, arguments, [&waiting, &answer](const ControlReply &reply) {
        answer = reply;
        waiting.quit();
    });
    if (!answer)
        waiting.exec();
    return std::move(answer).value_or(ControlReply{});
}

/// What an application that ended without an answer has done of a request all the same.
std::optional<ControlReply> doneSince(Date asked, const std::vector<UserVideoListing> &videos,
                                      const nlohmann::ordered_json &arguments)
{
    const std::string action = arguments.value("action", std::string());
    const QUuid id = QUuid::fromString(QString::fromStdString(arguments.value("id", std::string())));
    const QFileInfo file(QString::fromStdString(arguments.value("path", std::string())));
    const auto found = std::ranges::find_if(videos, [&](const UserVideoListing &line) {
        return action == "add" ? line.video.addedAt >= asked && QFileInfo(line.path) == file : line.video.id == id;
    });
    if (action == "add" && found != videos.end())
        return controlReply(ExitStatus::done, identifierText(found->video.id));
    return action == "remove" && found == videos.end() ? std::optional(ControlReply{}) : std::nullopt;
}

}

std::expected<VideoLook, StillFrameFailure> RememberedLook::look(const QString &path, StillFrameRequest request,
                                                                 std::stop_token stop) const
{
    if (m_path != path)
        m_look = m_stillFrame.look(path, request, std::move(stop));
    m_path = path;
    return m_look;
}

FileCommands::FileCommands(const CommandSurroundings &surroundings)
    : m_surroundings(surroundings)
    , m_look(surroundings.stillFrame)
{
}

ControlReply FileCommands::run(const ControlRequest &request, std::optional<Date> askedSince) const
{
    return request.command == QStringLiteral("videos") ? videos(request.arguments, askedSince)
                                                       : settings(request.arguments, false);
}

ControlReply FileCommands::readSettings(const nlohmann::ordered_json &arguments) const
{
    return settings(arguments, true);
}

ControlReply FileCommands::settings(const nlohmann::ordered_json &arguments, bool isReadOnly) const
{
    const auto defaults = m_surroundings.openDefaults(isReadOnly);
    PomodoroSettings settings(*defaults);
    LaunchAtLoginService launchAtLogin(settings, m_surroundings.loginItem);
    CommandTable commands;
    addSettingsCommands(commands, {settings, launchAtLogin, *defaults, {}});
    return answerOf(commands, QStringLiteral("settings"), arguments);
}

std::optional<ControlReply> FileCommands::refusal(const ControlRequest &request) const
{
    const auto path = request.arguments.find("path");
    if (path == request.arguments.end())
        return std::nullopt;
    const QString file = QString::fromStdString(path->get<std::string>());
    const auto valid = VideoFileValidator(m_look).validate(file, {});
    return valid ? std::nullopt : std::optional(controlReply(ExitStatus::failed, description(valid.error(), file)));
}

ControlReply FileCommands::videos(const nlohmann::ordered_json &arguments, std::optional<Date> askedSince) const
{
    CoreDataStack stack(m_surroundings.applicationSupportDirectory);
    UserVideoRepository repository(stack, m_surroundings.wallClock, m_surroundings.identifiers,
                                   *m_surroundings.bookmarks, m_look);
    UserVideoCommands videos(repository, m_look, m_surroundings.runLoop);
    if (askedSince) {
        if (const auto done = doneSince(*askedSince, videos.list(), arguments))
            return *done;
    }
    CommandTable commands;
    addVideoCommands(commands, videos);
    return answerOf(commands, QStringLiteral("videos"), arguments);
}

}
