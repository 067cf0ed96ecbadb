#pragma once

#include "CommandLine/FileCommands.h"
#include "Control/ControlClient.h"

namespace tomcatto {

/// The videos, one on each line with tabs between its columns: identifier, whether breaks play it, seconds, name and
/// where it is. Blocking.
class VideoList final
{
public:
    /// All of them outlive the list.
    VideoList(const CommandSurroundings &surroundings, const ControlClient &client, const FileCommands &files)
        : m_surroundings(surroundings)
        , m_client(client)
        , m_files(files)
    {
    }

    /// The user's own first, then those of the library, with and without the application.
    [[nodiscard]] ControlReply reply() const;

private:
    [[nodiscard]] std::optional<QStringList> ownVideos() const;
    [[nodiscard]] QStringList remoteVideos() const;

    const CommandSurroundings &m_surroundings;
    const ControlClient &m_client;
    const FileCommands &m_files;
};

}
