#include "Composition/VideoCommands.h"

#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

ControlReply list(const UserVideoCommands &videos, const RemoteVideoCommands &remote)
{
    Json lines = Json::array();
    for (const UserVideo &video : videos.stored())
        lines.push_back({{"id", identifierText(video.id).toStdString()},
                         {"name", video.displayName.toStdString()},
                         {"seconds", video.durationSeconds},
                         {"isSelected", video.userSelected}});
    remote.list(lines);
    return {ExitStatus::done, {}, lines};
}

}

void addVideoCommands(CommandTable &table, UserVideoCommands &videos, RemoteVideoProvider &library)
{
    const auto remote = std::make_shared<RemoteVideoCommands>(library);
    table.addLater(QStringLiteral("videos"), [&videos, remote](const Json &arguments,
                                                               const CommandTable::Answer &answer) {
        const QString action = textArgument(arguments, "action");
        const auto finish = [answer](const UserVideoCommands::Result &result) {
            answer(result ? ControlReply{} : controlReply(result.error()));
        };
        if (action == QStringLiteral("list"))
            return answer(list(videos, *remote));
        if (remote->run(action, arguments, answer))
            return;
        if (action == QStringLiteral("add"))
            return videos.add(textArgument(arguments, "path"), [answer](const UserVideoCommands::AddResult &result) {
                answer(result ? controlReply(ExitStatus::done, identifierText(*result)) : controlReply(result.error()));
            });
        if (action == QStringLiteral("remove"))
            return videos.remove(textArgument(arguments, "id"), finish);
        if (action == QStringLiteral("select"))
            return videos.select(textArgument(arguments, "id"), finish);
        if (action == QStringLiteral("deselect"))
            return videos.deselect(textArgument(arguments, "id"), finish);
        answer(controlReply(ExitStatus::usage, QStringLiteral("Unknown action \"%1\" on videos").arg(action)));
    });
}

}
