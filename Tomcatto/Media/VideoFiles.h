#pragma once

#include "Media/UserVideoSelection.h"
#include "Persistence/DiskQuestions.h"
#include "Persistence/Repositories/UserVideo.h"

#include <QtCore/QStringList>

namespace tomcatto {

class UserVideoRepository;

/// Where one of the user's videos is.
struct VideoPlace
{
    enum class State {
        /// Its disk did not answer.
        silent,
        lost,
        found,
    };

    State state = State::silent;
    QUrl fileUrl;
    /// The file was moved or replaced since its bookmark was made.
    bool isStale = false;
    /// Lasts as long as any copy, where it was asked for.
    std::shared_ptr<const UserVideoSelection> access;
};

/// Finds the user's videos without waiting for their disks. Main thread only.
class VideoFiles final : public QObject
{
    Q_OBJECT
public:
    /// How long an answer is waited for where a break waits for it, and where a person does.
    static constexpr std::chrono::milliseconds shortPatience{300};
    static constexpr std::chrono::milliseconds longPatience{3'000};
    /// How long all videos of one question may be looked for beside their last places, each once a run.
    static constexpr std::chrono::milliseconds searchTime{30};

    using Places = std::vector<VideoPlace>;

    /// @param repository outlives this object
    VideoFiles(UserVideoRepository &repository, std::shared_ptr<const Bookmarks> bookmarks, MainRunLoop &runLoop,
               QObject *parent = nullptr);

    /// Finds the files; `done` is called in a later turn with their places in the same order, unless this object is
    /// gone by then.
    void find(const std::vector<UserVideo> &videos, std::chrono::milliseconds patience,
              std::function<void(const Places &)> done);
    /// The same, and starts access to them; stale bookmarks are renewed.
    void open(const std::vector<UserVideo> &videos, std::chrono::milliseconds patience,
              std::function<void(const Places &)> done);
    /// Follows the links in paths, so that the same file is known by the same path; `done` is called likewise. A path
    /// whose file is missing, or whose disk does not answer, stays as it is.
    void followLinks(const QStringList &paths, std::function<void(const QStringList &)> done);

private:
    struct Answer
    {
        VideoPlace place;
        std::optional<QByteArray> renewedBookmark;
    };

    using Answers = std::vector<std::optional<Answer>>;
    /// How the disks are asked.
    struct Manner
    {
        std::chrono::milliseconds patience;
        /// How long each file may be looked for beside its last place.
        std::chrono::milliseconds searchTime;
        bool opens = false;
    };

    void ask(const std::vector<UserVideo> &videos, bool opens, std::chrono::milliseconds patience,
             std::function<void(const Places &)> done);
    void searchLost(const std::vector<UserVideo> &videos, bool opens, Answers answers,
                    const std::function<void(const Places &)> &done);
    void put(const std::vector<UserVideo> &videos, const Manner &manner, std::function<void(Answers)> done);
    [[nodiscard]] Places taken(const std::vector<UserVideo> &videos, Answers answers);
    [[nodiscard]] VideoPlace taken(const UserVideo &video, std::optional<Answer> answer);

    UserVideoRepository &m_repository;
    std::shared_ptr<const Bookmarks> m_bookmarks;
    /// Bookmarks whose files were looked for in vain.
    std::set<QByteArray> m_lookedFor;
    DiskQuestions m_disks;
};

}
