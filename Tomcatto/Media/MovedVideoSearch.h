#pragma once

#include "Persistence/DiskQuestions.h"
#include "Persistence/Repositories/UserVideo.h"

#include <stop_token>

namespace tomcatto {

class Bookmarks;
class UserVideoRepository;

/// Looks in the background for the user's videos that were moved too far to be found at once, and renews the bookmarks
/// of those it finds. Main thread only.
class MovedVideoSearch final : public QObject
{
    Q_OBJECT
public:
    /// How long it looks for one video, and for all of one call.
    static constexpr std::chrono::milliseconds timePerVideo{1'000};
    static constexpr std::chrono::milliseconds timePerSearch{5'000};

    /// @param repository outlives the search
    MovedVideoSearch(UserVideoRepository &repository, std::shared_ptr<const Bookmarks> bookmarks, MainRunLoop &runLoop,
                     QObject *parent = nullptr);
    ~MovedVideoSearch() override;

    /// Starts a search; nothing happens for an empty list and while one is running. @return whether it began
    bool search(std::vector<UserVideo> videos);

Q_SIGNALS:
    /// The search has ended, and bookmarks of what it found are handed to the repository.
    void finished();

private:
    using Renewed = std::vector<std::pair<QUuid, QByteArray>>;

    UserVideoRepository &m_repository;
    std::shared_ptr<const Bookmarks> m_bookmarks;
    bool m_isSearching = false;
    std::stop_source m_stop;
    DiskQuestions m_disks;
};

}
