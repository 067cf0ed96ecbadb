#pragma once

#include "Persistence/Repositories/UserVideo.h"
#include "Persistence/SerialQueue.h"

#include <atomic>
#include <chrono>
#include <QtCore/QObject>
#include <vector>

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

    /// Both outlive the search.
    MovedVideoSearch(UserVideoRepository &repository, const Bookmarks &bookmarks, QObject *parent = nullptr);
    ~MovedVideoSearch() override;

    /// Starts a search; nothing happens for an empty list and while one is running.
    void search(std::vector<UserVideo> videos);

Q_SIGNALS:
    /// The search has ended, and bookmarks of what it found are handed to the repository.
    void finished();

private:
    void run(const std::vector<UserVideo> &videos);

    UserVideoRepository &m_repository;
    const Bookmarks &m_bookmarks;
    bool m_isSearching = false;
    std::atomic<bool> m_isEnding = false;
    SerialQueue m_queue;
};

}
