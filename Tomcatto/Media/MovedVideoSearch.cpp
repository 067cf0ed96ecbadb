#include "Media/MovedVideoSearch.h"

#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QRandomGenerator>

namespace tomcatto {

namespace {

// One question at a time: a disk that hangs holds one thread.
const QByteArray questionKey = QByteArrayLiteral("moved videos");

}

MovedVideoSearch::MovedVideoSearch(UserVideoRepository &repository, std::shared_ptr<const Bookmarks> bookmarks,
                                   MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_bookmarks(std::move(bookmarks))
    , m_disks(runLoop)
{
}

MovedVideoSearch::~MovedVideoSearch()
{
    m_stop.request_stop();
}

bool MovedVideoSearch::search(std::vector<UserVideo> videos)
{
    if (videos.empty() || m_isSearching)
        return false;
    m_isSearching = true;
    // Files that are gone for good would use up the time of those behind them at every search.
    std::ranges::shuffle(videos, *QRandomGenerator::global());
    const auto look = [videos = std::move(videos), bookmarks = m_bookmarks, stop = m_stop.get_token()] {
        const QDeadlineTimer end(timePerSearch);
        Renewed found;
        for (const UserVideo &video : videos) {
            if (stop.stop_requested() || end.hasExpired())
                break;
            const auto resolved = bookmarks->resolve(video.bookmarkData, std::min(end, QDeadlineTimer(timePerVideo)));
            if (const auto renewed = resolved ? bookmarks->bookmarkData(resolved->fileUrl) : std::nullopt)
                found.emplace_back(video.id, *renewed);
        }
        return found;
    };
    m_disks.ask<Renewed>({{questionKey, look}}, timePerSearch + timePerVideo,
                         [this](const std::vector<std::optional<Renewed>> &answers) {
                             m_isSearching = false;
                             for (const auto &[id, data] : answers.front().value_or(Renewed()))
                                 m_repository.updateBookmarkData(id, data);
                             Q_EMIT finished();
                         });
    return true;
}

}
