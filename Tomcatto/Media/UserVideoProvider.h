#pragma once

#include "Foundation/Logger.h"
#include "Media/VideoFiles.h"
#include "Media/VideoProviding.h"

#include <chrono>

namespace tomcatto {

class MovedVideoSearch;
class UserVideoRepository;

/// Turns the user's selected videos into files to play. Main thread only.
class UserVideoProvider final : public UserVideoProviding
{
public:
    /// All outlive the provider.
    UserVideoProvider(UserVideoRepository &repository, VideoFiles &files, MovedVideoSearch &movedVideoSearch);

    /// The selected videos, those never played first, then those played longest ago. The access to their files lasts
    /// until the next list or `endAccess`. A video whose disk does not answer soon is left out; one that is lost is
    /// searched for in the background, once a run, and is there the next time.
    void candidates(std::function<void(const Candidates &)> done) override;
    void markPlayed(const QUuid &id) override;
    /// Lets go of the candidates' files, once nothing plays any more. Lists that are still on their way come to nobody.
    void endAccess();
    /// Which of the candidates lies there; nothing if none does.
    [[nodiscard]] std::optional<QUuid> candidateAt(const QUrl &file) const;

    /// Opens one video by itself, selected or not; the access lasts as long as the result. A video that has no record
    /// gives nothing.
    void open(const QUuid &id, const std::function<void(std::optional<VideoPlace>)> &done);

private:
    void list(const std::vector<UserVideo> &videos, const VideoFiles::Places &places);
    void searchOnce(const std::vector<UserVideo> &lost);

    UserVideoRepository &m_repository;
    VideoFiles &m_files;
    MovedVideoSearch &m_movedVideoSearch;
    Logger m_logger;
    std::map<QUuid, VideoPlace> m_accesses;
    bool m_isListing = false;
    std::vector<std::function<void(const Candidates &)>> m_waiting;
    /// Bookmarks of files that were searched for.
    std::set<QByteArray> m_searchedFor;
};

}
