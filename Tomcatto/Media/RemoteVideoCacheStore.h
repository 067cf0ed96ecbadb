#pragma once

#include "Foundation/Logger.h"
#include "Media/RemoteVideoCacheState.h"
#include "Persistence/SerialQueue.h"

#include <expected>
#include <functional>
#include <QtCore/QStringList>

namespace tomcatto {

/// Keeps on disk which videos of a remote library are there and which of them breaks play: the videos in a folder, the
/// rest in one JSON file. The state is read once and kept; it is touched on the store's own queue alone. Any thread,
/// and of all processes the one that holds the instance lock, but for reading.
class RemoteVideoCacheStore final
{
public:
    /// @param stateFile the file "state.json"; a missing or broken one is an empty state. @param videoDirectory is made
    /// with the first change
    RemoteVideoCacheStore(QString stateFile, QString videoDirectory);
    /// Waits for what is being written.
    ~RemoteVideoCacheStore();

    RemoteVideoCacheStore(const RemoteVideoCacheStore &) = delete;
    RemoteVideoCacheStore &operator=(const RemoteVideoCacheStore &) = delete;

    [[nodiscard]] RemoteVideoCacheState state();
    /// Changes the state; it is on its way to the disk when this returns. Where it cannot be written it holds until the
    /// process ends.
    void mutate(const std::function<void(RemoteVideoCacheState &)> &change);
    /// Where a video's file is or would be.
    [[nodiscard]] QString filePath(const QString &id) const;
    /// Where a video's file grows while it is downloaded.
    [[nodiscard]] QString partPath(const QString &id) const;
    /// Makes the folder of the videos, for this user alone where it is new. @return whether it is there
    [[nodiscard]] bool makeDirectory() const;
    /// Puts what was downloaded in the place of the video's file. Blocking; for the queue. @return the file's size in
    /// bytes; as the error, why it cannot be put there
    [[nodiscard]] std::expected<qint64, QString> takeFile(const QString &id) const;
    /// Removes a video's entry, and its file shortly after.
    void removeCachedVideo(const QString &id);
    /// Removes, in the background, what earlier processes left behind when they were ended by force: parts of files,
    /// and videos without an entry.
    void removeLeftovers();
    /// The queue, for work on the files.
    [[nodiscard]] SerialQueue &queue() noexcept { return m_queue; }

private:
    RemoteVideoCacheState &loaded();
    void persist();
    void sweep();

    QString m_stateFile;
    QString m_videoDirectory;
    Logger m_logger;
    std::optional<RemoteVideoCacheState> m_cachedState;
    // Last, so that its jobs end before the rest goes.
    SerialQueue m_queue;
};

}
