#include "Media/VideoFiles.h"

#include "Foundation/Logger.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QDir>

namespace tomcatto {

VideoFiles::VideoFiles(UserVideoRepository &repository, std::shared_ptr<const Bookmarks> bookmarks,
                       MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_bookmarks(std::move(bookmarks))
    , m_disks(runLoop)
{
}

void VideoFiles::find(const std::vector<UserVideo> &videos, std::chrono::milliseconds patience,
                      std::function<void(const Places &)> done)
{
    ask(videos, false, patience, std::move(done));
}

void VideoFiles::open(const std::vector<UserVideo> &videos, std::chrono::milliseconds patience,
                      std::function<void(const Places &)> done)
{
    ask(videos, true, patience, std::move(done));
}

// Each gets its share, so that one that is gone takes none from one that was moved.
std::chrono::milliseconds VideoFiles::searchTimeOf(const std::vector<UserVideo> &videos) const
{
    const auto isNew = [this](const UserVideo &video) { return !m_lookedFor.contains(video.bookmarkData); };
    return searchTime / std::max<std::ptrdiff_t>(std::ranges::count_if(videos, isNew), 1);
}

void VideoFiles::ask(const std::vector<UserVideo> &videos, bool opens, std::chrono::milliseconds patience,
                     std::function<void(const Places &)> done)
{
    std::vector<DiskQuestions::Question<Answer>> questions;
    const auto share = std::max(searchTimeOf(videos), std::chrono::milliseconds(1));
    for (const UserVideo &video : videos) {
        const auto time = m_lookedFor.contains(video.bookmarkData) ? std::chrono::milliseconds(0) : share;
        questions.push_back({video.bookmarkData, [bookmarks = m_bookmarks, data = video.bookmarkData, time, opens] {
                                 Answer answer;
                                 answer.place.state = VideoPlace::State::lost;
                                 const auto resolved = bookmarks->resolve(data, QDeadlineTimer(time));
                                 if (!resolved)
                                     return answer;
                                 answer.place = {VideoPlace::State::found, resolved->fileUrl, resolved->isStale, {}};
                                 if (!opens)
                                     return answer;
                                 if (resolved->isStale)
                                     answer.renewedBookmark = bookmarks->bookmarkData(resolved->fileUrl);
                                 answer.place.access =
                                     std::make_shared<const UserVideoSelection>(resolved->fileUrl, bookmarks);
                                 return answer;
                             }});
    }
    m_disks.ask<Answer>(std::move(questions), patience,
                        [this, videos, done = std::move(done)](std::vector<std::optional<Answer>> answers) {
                            Places places;
                            for (std::size_t place = 0; place < videos.size(); ++place)
                                places.push_back(taken(videos.at(place), std::move(answers.at(place))));
                            done(places);
                        });
}

void VideoFiles::followLinks(const QStringList &paths, std::function<void(const QStringList &)> done)
{
    std::vector<DiskQuestions::Question<QString>> questions;
    for (const QString &path : paths)
        questions.push_back({path.toUtf8(), [path] { return QFileInfo(path).canonicalFilePath(); }});
    m_disks.ask<QString>(std::move(questions), shortPatience,
                         [paths, done = std::move(done)](const std::vector<std::optional<QString>> &answers) {
                             QStringList followed;
                             for (std::size_t place = 0; place < answers.size(); ++place) {
                                 const QString canonical = answers.at(place).value_or(QString());
                                 const QString &path = paths.at(static_cast<qsizetype>(place));
                                 followed << (canonical.isEmpty() ? QDir::cleanPath(path) : canonical);
                             }
                             done(followed);
                         });
}

VideoPlace VideoFiles::taken(const UserVideo &video, std::optional<Answer> answer)
{
    if (!answer) {
        Logger(QStringLiteral("VideoFiles"))
            .info(QStringLiteral("The disk of “%1” does not answer; passing over it").arg(video.displayName));
        return {};
    }
    if (answer->place.state == VideoPlace::State::lost)
        m_lookedFor.insert(video.bookmarkData);
    if (answer->place.access && answer->place.isStale)
        Logger(QStringLiteral("UserVideoRepository"))
            .info(QStringLiteral("Resolved a stale security-scoped bookmark; caller should refresh."));
    if (answer->renewedBookmark)
        m_repository.updateBookmarkData(video.id, *answer->renewedBookmark);
    return std::move(answer->place);
}

}
