#pragma once

#include "Foundation/Logger.h"
#include "Media/UserVideoSelection.h"
#include "Media/VideoProviding.h"
#include "Persistence/Repositories/UserVideo.h"

#include <chrono>
#include <expected>
#include <memory>

namespace tomcatto {

class MovedVideoSearch;
class UserVideoRepository;

/// Turns the user's selected videos into files to play. Main thread only.
class UserVideoProvider final : public UserVideoProviding
{
public:
    /// How long one question may look for moved files, all videos together; what it does not find in that time is
    /// searched for in the background and is there the next time.
    static constexpr std::chrono::milliseconds searchTime{30};

    /// All outlive the provider.
    UserVideoProvider(UserVideoRepository &repository, const Bookmarks &bookmarks, MovedVideoSearch &movedVideoSearch);

    /// The selected videos, those never played first, then those played longest ago. The access to their files lasts
    /// until the next call or `endAccess`.
    [[nodiscard]] std::vector<LocalVideoCandidate> candidates() override;
    void markPlayed(const QUuid &id) override;
    /// Lets go of the candidates' files, once nothing plays any more.
    void endAccess() { m_accesses.clear(); }

    /// One video by itself, selected or not; the access lasts as long as the result.
    [[nodiscard]] std::expected<std::unique_ptr<UserVideoSelection>, UserVideoRepositoryError>
    selection(const QUuid &id);

private:
    [[nodiscard]] QUrl renewedUrl(const QUuid &id, const ResolvedBookmark &resolved);

    UserVideoRepository &m_repository;
    const Bookmarks &m_bookmarks;
    MovedVideoSearch &m_movedVideoSearch;
    Logger m_logger;
    std::vector<std::unique_ptr<UserVideoSelection>> m_accesses;
};

}
