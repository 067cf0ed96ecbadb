#include "Media/UserVideoProvider.h"

#include "Media/MovedVideoSearch.h"
#include "Persistence/Repositories/UserVideoRepository.h"
#include "Platform/Ports/IdentifierSource.h"

#include <algorithm>
#include <utility>

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

UserVideoProvider::UserVideoProvider(UserVideoRepository &repository, VideoFiles &files,
                                     MovedVideoSearch &movedVideoSearch)
    : m_repository(repository)
    , m_files(files)
    , m_movedVideoSearch(movedVideoSearch)
    , m_logger(QStringLiteral("UserVideoProvider"))
{
}

void UserVideoProvider::candidates(std::function<void(const Candidates &)> done)
{
    // Windows that ask together are answered together.
    if (m_isListing) {
        m_waiting.push_back(std::move(done));
        return;
    }
    auto videos = m_repository.selectedVideos();
    if (videos.empty())
        return done({});
    std::ranges::stable_sort(videos, playsBefore);
    m_waiting.push_back(std::move(done));
    m_isListing = true;
    m_files.open(videos, VideoFiles::shortPatience,
                 [this, videos](const VideoFiles::Places &places) { list(videos, places); });
}

void UserVideoProvider::list(const std::vector<UserVideo> &videos, const VideoFiles::Places &places)
{
    m_isListing = false;
    Candidates found;
    std::map<QUuid, VideoPlace> accesses;
    std::vector<UserVideo> lost;
    for (std::size_t place = 0; place < videos.size(); ++place) {
        const UserVideo &video = videos.at(place);
        if (places.at(place).state == VideoPlace::State::lost)
            lost.push_back(video);
        if (places.at(place).state != VideoPlace::State::found)
            continue;
        if (!places.at(place).access->hasAccess()) {
            m_logger.error(QStringLiteral("startAccessingSecurityScopedResource returned false; skipping video"));
            continue;
        }
        found.push_back({LocalVideoCandidate::Origin::user, identifierText(video.id), places.at(place).fileUrl});
        accesses.emplace(video.id, places.at(place));
    }
    searchOnce(lost);
    const auto waiting = std::exchange(m_waiting, {});
    if (waiting.empty())
        return;
    // The former ones end after the new ones began: a file that is playing stays accessible.
    m_accesses = std::move(accesses);
    for (const auto &done : waiting)
        done(found);
}

// A file that is gone for good would be looked for at every break.
void UserVideoProvider::searchOnce(const std::vector<UserVideo> &lost)
{
    std::vector<UserVideo> wanted;
    std::ranges::copy_if(lost, std::back_inserter(wanted),
                         [this](const UserVideo &video) { return !m_searchedFor.contains(video.bookmarkData); });
    if (!m_movedVideoSearch.search(wanted))
        return;
    for (const UserVideo &video : wanted)
        m_searchedFor.insert(video.bookmarkData);
}

void UserVideoProvider::endAccess()
{
    m_accesses.clear();
    m_waiting.clear();
}

std::optional<QUuid> UserVideoProvider::candidateAt(const QUrl &file) const
{
    for (const auto &[id, place] : m_accesses) {
        if (place.fileUrl == file)
            return id;
    }
    return std::nullopt;
}

void UserVideoProvider::markPlayed(const QUuid &id)
{
    m_repository.markPlayed(id);
}

void UserVideoProvider::open(const QUuid &id, const std::function<void(std::optional<VideoPlace>)> &done)
{
    const auto video = m_repository.video(id);
    if (!video)
        return done(std::nullopt);
    m_files.open({*video}, VideoFiles::longPatience, [this, video = *video, done](const VideoFiles::Places &places) {
        const VideoPlace &place = places.front();
        if (place.state == VideoPlace::State::lost)
            searchOnce({video});
        if (place.access && !place.access->hasAccess())
            m_logger.error(QStringLiteral("startAccessingSecurityScopedResource returned false for user video"));
        done(place);
    });
}

}
