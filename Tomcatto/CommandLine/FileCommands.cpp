#include "CommandLine/FileCommands.h"

#include "Composition/SettingsCommands.h"
#include "Composition/VideoCommands.h"
#include "Media/VideoFileValidator.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <QtCore/QEventLoop>

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

}

FileCommands::FileCommands(const CommandSurroundings &surroundings)
    : m_surroundings(surroundings)
{
}

ControlReply FileCommands::run(const ControlRequest &request) const
{
    return request.command == QStringLiteral("videos") ? videos(request.arguments) : settings(request.arguments, false);
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

std::optional<ControlReply> FileCommands::refusal(const QString &videoPath) const
{
    const auto valid = VideoFileValidator(m_surroundings.stillFrame).validate(videoPath, {});
    return valid ? std::nullopt
                 : std::optional(controlReply(ExitStatus::failed, description(valid.error(), videoPath)));
}

ControlReply FileCommands::videos(const nlohmann::ordered_json &arguments) const
{
    CoreDataStack stack(m_surroundings.applicationSupportDirectory);
    UserVideoRepository repository(stack, m_surroundings.wallClock, m_surroundings.identifiers,
                                   m_surroundings.bookmarks, m_surroundings.stillFrame);
    UserVideoCommands videos(repository, m_surroundings.stillFrame);
    CommandTable commands;
    addVideoCommands(commands, videos);
    return answerOf(commands, QStringLiteral("videos"), arguments);
}

}
