#include "Media/MovedVideoSearch.h"

#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QRandomGenerator>

namespace tomcatto {

MovedVideoSearch::MovedVideoSearch(UserVideoRepository &repository, const Bookmarks &bookmarks, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_bookmarks(bookmarks)
{
}

MovedVideoSearch::~MovedVideoSearch()
{
    m_isEnding = true;
    m_queue.drain();
}

void MovedVideoSearch::search(std::vector<UserVideo> videos)
{
    if (videos.empty() || m_isSearching)
        return;
    m_isSearching = true;
    // Files that are gone for good would use up the time of those behind them at every search.
    std::ranges::shuffle(videos, *QRandomGenerator::global());
    m_queue.async([this, videos = std::move(videos)] { run(videos); });
}

// On the queue.
void MovedVideoSearch::run(const std::vector<UserVideo> &videos)
{
    const QDeadlineTimer end(timePerSearch);
    for (const UserVideo &video : videos) {
        if (m_isEnding || end.hasExpired())
            break;
        const auto resolved = m_repository.resolveBookmark(video, std::min(end, QDeadlineTimer(timePerVideo)));
        const auto renewed = resolved ? m_bookmarks.bookmarkData(resolved->fileUrl) : std::nullopt;
        if (!renewed)
            continue;
        QMetaObject::invokeMethod(
            this, [this, id = video.id, data = *renewed] { m_repository.updateBookmarkData(id, data); },
            Qt::QueuedConnection);
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isSearching = false;
            Q_EMIT finished();
        },
        Qt::QueuedConnection);
}

}
