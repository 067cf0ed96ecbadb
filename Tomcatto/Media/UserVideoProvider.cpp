#include "Media/UserVideoProvider.h"

#include "Media/MovedVideoSearch.h"
#include "Persistence/Repositories/UserVideoRepository.h"
#include "Platform/Ports/IdentifierSource.h"

#include <algorithm>

namespace tomcatto {

namespace {

bool playsBefore(const UserVideo &left, const UserVideo &right)
{
    // A missing date is before every other, so never played comes first, and so does never dated.
    if (left.lastPlayedAt || right.lastPlayedAt)
        return left.lastPlayedAt < right.lastPlayedAt;
    return left.addedAt < right.addedAt;
}

}

UserVideoProvider::UserVideoProvider(UserVideoRepository &repository, const Bookmarks &bookmarks,
                                     MovedVideoSearch &movedVideoSearch)
    : m_repository(repository)
    , m_bookmarks(bookmarks)
    , m_movedVideoSearch(movedVideoSearch)
    , m_logger(QStringLiteral("UserVideoProvider"))
{
}

std::vector<LocalVideoCandidate> UserVideoProvider::candidates()
{
    auto videos = m_repository.selectedVideos();
    std::ranges::stable_sort(videos, playsBefore);
    const auto resolved = m_repository.resolveBookmarks(videos, QDeadlineTimer(searchTime));
    std::vector<LocalVideoCandidate> found;
    std::vector<std::unique_ptr<UserVideoSelection>> accesses;
    std::vector<UserVideo> lost;
    for (std::size_t place = 0; place < videos.size(); ++place) {
        UserVideo &video = videos.at(place);
        if (!resolved.at(place)) {
            lost.push_back(std::move(video));
            continue;
        }
        const QUrl url = renewedUrl(video.id, *resolved.at(place));
        auto access = std::make_unique<UserVideoSelection>(url, m_bookmarks);
        if (!access->hasAccess()) {
            m_logger.error(QStringLiteral("startAccessingSecurityScopedResource returned false; skipping video"));
            continue;
        }
        found.push_back({LocalVideoCandidate::Origin::user, identifierText(video.id), url});
        accesses.push_back(std::move(access));
    }
    // The former ones end after the new ones began: a file that is playing stays accessible.
    m_accesses = std::move(accesses);
    m_movedVideoSearch.search(std::move(lost));
    return found;
}

void UserVideoProvider::markPlayed(const QUuid &id)
{
    m_repository.markPlayed(id);
}

std::expected<std::unique_ptr<UserVideoSelection>, UserVideoRepositoryError>
UserVideoProvider::selection(const QUuid &id)
{
    const auto video = m_repository.video(id);
    if (!video)
        return std::unexpected(video.error());
    const auto resolved = m_repository.resolveBookmark(*video, QDeadlineTimer(searchTime));
    if (!resolved) {
        m_movedVideoSearch.search({*video});
        return std::unexpected(resolved.error());
    }
    auto selection = std::make_unique<UserVideoSelection>(renewedUrl(id, *resolved), m_bookmarks);
    if (!selection->hasAccess())
        m_logger.error(QStringLiteral("startAccessingSecurityScopedResource returned false for user video"));
    return selection;
}

QUrl UserVideoProvider::renewedUrl(const QUuid &id, const ResolvedBookmark &resolved)
{
    if (resolved.isStale) {
        if (const auto renewed = m_bookmarks.bookmarkData(resolved.fileUrl))
            m_repository.updateBookmarkData(id, *renewed);
    }
    return resolved.fileUrl;
}

}
