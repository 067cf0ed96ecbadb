#pragma once

#include "Control/CommandTable.h"
#include "Media/RemoteVideoProvider.h"

namespace tomcatto {

/// Carries out, of the "videos" command, what is about a remote library. Main thread only.
class RemoteVideoCommands final : public QObject
{
    Q_OBJECT

public:
    /// @param provider outlives the commands
    explicit RemoteVideoCommands(RemoteVideoProvider &provider, QObject *parent = nullptr);

    /// Adds the library's videos to a list.
    void list(nlohmann::ordered_json &lines) const;
    /// Carries out an action; the answer comes at once or later. @return false where it is not about the library
    [[nodiscard]] bool run(const QString &action, const nlohmann::ordered_json &arguments,
                           const CommandTable::Answer &answer);

private:
    [[nodiscard]] ControlReply refreshed() const;
    void download(const QString &id, bool isWatched, const CommandTable::Answer &answer);
    void begin(const QString &id, bool isWatched, const CommandTable::Answer &answer);
    [[nodiscard]] ControlReply ended(const QString &id, RemoteVideoProvider::DownloadOutcome outcome) const;
    [[nodiscard]] ControlReply progress(const QString &id) const;
    [[nodiscard]] bool isOurs(const QString &id) const;
    [[nodiscard]] bool change(const QString &action, const QString &id, const CommandTable::Answer &answer);

    RemoteVideoProvider &m_provider;
    /// How the last watched download of each video ended.
    std::map<QString, ControlReply> m_ended;
};

}
