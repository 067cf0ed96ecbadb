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

void VideoFiles::ask(const std::vector<UserVideo> &videos, bool opens, std::chrono::milliseconds patience,
                     std::function<void(const Places &)> done)
{
    put(videos, {patience, std::chrono::milliseconds(0), opens},
        [this, videos, opens, done = std::move(done)](Answers answers) {
            searchLost(videos, opens, std::move(answers), done);
        });
}

// Each gets its share of the time, so that one that is gone takes none from one that was moved.
void VideoFiles::searchLost(const std::vector<UserVideo> &videos, bool opens, Answers answers,
                            const std::function<void(const Places &)> &done)
{
    std::vector<std::size_t> rows;
    std::vector<UserVideo> lost;
    for (std::size_t row = 0; row < videos.size(); ++row) {
        const auto &answer = answers.at(row);
        if (answer && answer->place.state == VideoPlace::State::lost &&
            !m_lookedFor.contains(videos.at(row).bookmarkData)) {
            rows.push_back(row);
            lost.push_back(videos.at(row));
        }
    }
    if (lost.empty())
        return done(taken(videos, std::move(answers)));
    constexpr std::chrono::milliseconds shortest{1};
    const auto share = std::max<std::chrono::milliseconds>(searchTime / std::ssize(lost), shortest);
    put(lost, {shortPatience, share, opens},
        [this, videos, rows, answers = std::move(answers), done](Answers found) mutable {
            for (std::size_t place = 0; place < rows.size(); ++place) {
                auto &answer = found.at(place);
                if (answer && answer->place.state == VideoPlace::State::lost)
                    m_lookedFor.insert(videos.at(rows.at(place)).bookmarkData);
                else if (answer)
                    answers.at(rows.at(place)) = std::move(answer);
            }
            done(taken(videos, std::move(answers)));
        });
}

void VideoFiles::put(const std::vector<UserVideo> &videos, const Manner &manner, std::function<void(Answers)> done)
{
    std::vector<DiskQuestions::Question<Answer>> questions;
    for (const UserVideo &video : videos) {
        const auto look = [bookmarks = m_bookmarks, data = video.bookmarkData, manner] {
            Answer answer;
            answer.place.state = VideoPlace::State::lost;
            const auto resolved = bookmarks->resolve(data, QDeadlineTimer(manner.searchTime));
            if (!resolved)
                return answer;
            answer.place = {VideoPlace::State::found, resolved->fileUrl, resolved->isStale, {}};
            if (!manner.opens)
                return answer;
            if (resolved->isStale)
                answer.renewedBookmark = bookmarks->bookmarkData(resolved->fileUrl);
            answer.place.access = std::make_shared<const UserVideoSelection>(resolved->fileUrl, bookmarks);
            return answer;
        };
        questions.push_back({video.bookmarkData, look, m_bookmarks->disk(video.bookmarkData)});
    }
    m_disks.ask<Answer>(std::move(questions), manner.patience, std::move(done));
}

void VideoFiles::followLinks(const QStringList &paths, std::function<void(const QStringList &)> done)
{
    std::vector<DiskQuestions::Question<QString>> questions;
    for (const QString &path : paths) {
        // The disk is not known without asking it.
        const QByteArray folder = QFileInfo(path).path().toUtf8();
        questions.push_back({path.toUtf8(), [path] { return QFileInfo(path).canonicalFilePath(); }, folder});
    }
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

VideoFiles::Places VideoFiles::taken(const std::vector<UserVideo> &videos, Answers answers)
{
    Places places;
    for (std::size_t row = 0; row < videos.size(); ++row)
        places.push_back(taken(videos.at(row), std::move(answers.at(row))));
    return places;
}

VideoPlace VideoFiles::taken(const UserVideo &video, std::optional<Answer> answer)
{
    if (!answer) {
        Logger(QStringLiteral("VideoFiles"))
            .info(QStringLiteral("The disk of “%1” does not answer; passing over it").arg(video.displayName));
        return {};
    }
    if (answer->place.access && answer->place.isStale)
        Logger(QStringLiteral("UserVideoRepository"))
            .info(QStringLiteral("Resolved a stale security-scoped bookmark; caller should refresh."));
    if (answer->renewedBookmark)
        m_repository.updateBookmarkData(video.id, *answer->renewedBookmark);
    return std::move(answer->place);
}

}
