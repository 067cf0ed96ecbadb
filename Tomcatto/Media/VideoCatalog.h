#pragma once

#include "Foundation/Logger.h"
#include "Media/VideoProviding.h"

class QRandomGenerator;

namespace tomcatto {

/// Chooses the video of a break: one of the user's own at random, else one of the remote library, else the bundled ones
/// in turn. Main thread only.
class VideoCatalog final
{
public:
    /// All outlive the catalog. @param remoteProvider may be null
    VideoCatalog(const BundledVideoProviding &bundledProvider, UserVideoProviding &userProvider,
                 RemoteVideoProviding *remoteProvider, QRandomGenerator &random);

    /// Gives the next file to play, once for each window that plays one; nothing if there is no video at all. `done`
    /// is called at once or, where files of the user's are looked for, later.
    void nextVideoUrl(std::function<void(const std::optional<QUrl> &)> done);

private:
    [[nodiscard]] std::optional<QUrl> nextUserVideoUrl(const UserVideoProviding::Candidates &candidates);
    [[nodiscard]] std::optional<QUrl> nextBundledVideoUrl();

    const BundledVideoProviding &m_bundledProvider;
    UserVideoProviding &m_userProvider;
    RemoteVideoProviding *m_remoteProvider;
    QRandomGenerator &m_random;
    Logger m_logger;
    qint64 m_bundledCursor = 0;
};

}
