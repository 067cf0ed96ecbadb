#include "Composition/VideoCommands.h"

#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

ExitStatus exitStatus(UserVideoCommandError::Kind kind)
{
    switch (kind) {
    case UserVideoCommandError::Kind::usage:
        return ExitStatus::usage;
    case UserVideoCommandError::Kind::videoNotFound:
        return ExitStatus::notApplicable;
    case UserVideoCommandError::Kind::file:
    case UserVideoCommandError::Kind::store:
        return ExitStatus::failed;
    }
    return ExitStatus::failed;
}

QString textOf(const Json &arguments, const char *key)
{
    const auto found = arguments.find(key);
    return found != arguments.end() && found->is_string() ? QString::fromStdString(found->get<std::string>())
                                                          : QString();
}

}

void addVideoCommands(CommandTable &table, UserVideoCommands &videos)
{
    table.addLater(QStringLiteral("videos"), [&videos](const Json &arguments, const CommandTable::Answer &answer) {
        const QString action = textOf(arguments, "action");
        const auto finish = [answer](const UserVideoCommands::Result &result) {
            answer(result ? ControlReply{} : controlReply(exitStatus(result.error().kind), result.error().text));
        };
        if (action == QStringLiteral("add"))
            return videos.add(textOf(arguments, "path"), [answer](const UserVideoCommands::AddResult &result) {
                answer(result ? controlReply(ExitStatus::done, identifierText(*result))
                              : controlReply(exitStatus(result.error().kind), result.error().text));
            });
        if (action == QStringLiteral("remove"))
            return videos.remove(textOf(arguments, "id"), finish);
        if (action == QStringLiteral("select"))
            return videos.select(textOf(arguments, "id"), finish);
        if (action == QStringLiteral("deselect"))
            return videos.deselect(textOf(arguments, "id"), finish);
        answer(controlReply(ExitStatus::usage, QStringLiteral("Unknown action \"%1\" on videos").arg(action)));
    });
}

}
