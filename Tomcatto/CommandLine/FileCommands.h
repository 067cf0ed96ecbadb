#pragma once

#include "CommandLine/CommandSurroundings.h"
#include "Control/ControlMessage.h"

namespace tomcatto {

/// Carries out on the files, while no application runs, the commands that need none: those on the settings and on the
/// user's own videos. The answers are the application's. Whoever changes something holds the instance lock. Blocking.
class FileCommands final
{
public:
    /// @param surroundings outlive the commands.
    explicit FileCommands(const CommandSurroundings &surroundings);

    /// Carries out a request that changes something, as the application's command of that name does.
    [[nodiscard]] ControlReply run(const ControlRequest &request) const;
    /// Lists the settings or gets one; their file is left alone.
    [[nodiscard]] ControlReply readSettings(const nlohmann::ordered_json &arguments) const;
    /// Looks into a file that is to be added, which may take seconds and needs no lock. @return why it is no video
    [[nodiscard]] std::optional<ControlReply> refusal(const QString &videoPath) const;

private:
    [[nodiscard]] ControlReply settings(const nlohmann::ordered_json &arguments, bool isReadOnly) const;
    [[nodiscard]] ControlReply videos(const nlohmann::ordered_json &arguments) const;

    const CommandSurroundings &m_surroundings;
};

}
