#pragma once

#include "CommandLine/CommandSurroundings.h"
#include "Control/ControlMessage.h"
#include "Persistence/StoreCopy.h"

namespace tomcatto {

/// Remembers the last look into a video.
class RememberedLook final : public StillFrame
{
public:
    /// @param stillFrame outlives this
    explicit RememberedLook(const StillFrame &stillFrame)
        : m_stillFrame(stillFrame)
    {
    }

    [[nodiscard]] std::expected<VideoLook, StillFrameFailure> look(const QString &path, StillFrameRequest request,
                                                                   std::stop_token stop) const override;

private:
    const StillFrame &m_stillFrame;
    mutable QString m_path;
    mutable std::expected<VideoLook, StillFrameFailure> m_look;
};

/// Carries out on the files, while no application runs, the commands that need none: those on the settings and
/// manners, the shortcuts, the history and the user's own videos. The answers are the application's. The caller holds
/// the instance lock for a change. Blocking.
class FileCommands final
{
public:
    /// @param surroundings outlive the commands.
    explicit FileCommands(const CommandSurroundings &surroundings);

    /// Carries out a request that changes something, as the application's command of that name does.
    /// @param askedSince when an application got the request that ended without an answer: what it has done by then is
    /// not done twice
    /// @param onProgress takes from 0 to 1 how far a download is
    [[nodiscard]] ControlReply run(const ControlRequest &request, std::optional<Date> askedSince = {},
                                   const std::function<void(double)> &onProgress = {}) const;
    /// Makes a store of a copy, ready to be put in place by "history" with the action "restore".
    [[nodiscard]] StoreCopyResult<QString> prepareStore(const QString &copy) const;
    /// Lists the settings or the manners, gets one or lists the shortcuts; their file is left alone.
    [[nodiscard]] ControlReply read(const ControlRequest &request) const;
    /// Lists the videos of a remote library as the application does, as they were last on disk. Needs no lock.
    /// @param folder the application's own folder
    [[nodiscard]] nlohmann::ordered_json remoteVideos(const QString &folder) const;
    /// Looks into the file of a video that is to be added, once, which may take seconds and needs no lock.
    /// @return why the request cannot be carried out; nothing as a rule
    [[nodiscard]] std::optional<ControlReply> refusal(const ControlRequest &request) const;

private:
    [[nodiscard]] ControlReply withDefaults(const ControlRequest &request, bool isReadOnly) const;
    [[nodiscard]] ControlReply history(const nlohmann::ordered_json &arguments, bool wasAsked) const;
    [[nodiscard]] ControlReply restoreHistory(const nlohmann::ordered_json &arguments, bool wasAsked) const;
    [[nodiscard]] ControlReply videos(nlohmann::ordered_json arguments, std::optional<Date> askedSince,
                                      const std::function<void(double)> &onProgress) const;

    const CommandSurroundings &m_surroundings;
    RememberedLook m_look;
};

}
