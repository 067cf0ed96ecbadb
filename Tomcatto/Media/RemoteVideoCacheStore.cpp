#include "Media/RemoteVideoCacheStore.h"

#include "Media/WholeFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

const QString videoEnding = QStringLiteral(".mp4");

// A state with a hundred thousand videos; what is larger is not ours.
constexpr qint64 largestState = qint64{32} * 1024 * 1024;

}

RemoteVideoCacheStore::RemoteVideoCacheStore(QString stateFile, QString videoDirectory)
    : m_stateFile(std::move(stateFile))
    , m_videoDirectory(std::move(videoDirectory))
    , m_logger(QStringLiteral("RemoteVideoCacheStore"))
{
}

RemoteVideoCacheStore::~RemoteVideoCacheStore()
{
    m_queue.drain();
}

RemoteVideoCacheState RemoteVideoCacheStore::state()
{
    RemoteVideoCacheState copy;
    m_queue.sync([this, &copy] { copy = loaded(); });
    return copy;
}

void RemoteVideoCacheStore::mutate(const std::function<void(RemoteVideoCacheState &)> &change)
{
    m_queue.sync([this, &change] { change(loaded()); });
    // Nobody waits for the disk.
    m_queue.async([this] { persist(); });
}

QString RemoteVideoCacheStore::filePath(const QString &id) const
{
    return m_videoDirectory + QLatin1Char('/') + id + videoEnding;
}

QString RemoteVideoCacheStore::partPath(const QString &id) const
{
    // No identifier begins like this.
    return m_videoDirectory + QStringLiteral("/.") + id + QStringLiteral(".part");
}

bool RemoteVideoCacheStore::makeDirectory() const
{
    return makeFolder(m_videoDirectory);
}

std::expected<qint64, QString> RemoteVideoCacheStore::takeFile(const QString &id) const
{
    const QString file = filePath(id);
    QFile part(partPath(id));
    if (QFileInfo::exists(file) && !QFile::remove(file)) {
        part.remove();
        return std::unexpected(QStringLiteral("the file that is there cannot be removed"));
    }
    if (!part.rename(file)) {
        const QString problem = part.errorString();
        part.remove();
        return std::unexpected(problem);
    }
    return QFileInfo(file).size();
}

void RemoteVideoCacheStore::removeCachedVideo(const QString &id)
{
    mutate([&id](RemoteVideoCacheState &state) { state.entries.erase(id); });
    // After its entry, so that no entry is ever without its file.
    m_queue.async([file = filePath(id)] { QFile::remove(file); });
}

void RemoteVideoCacheStore::removeLeftovers()
{
    m_queue.async([this] { sweep(); });
}

RemoteVideoCacheState &RemoteVideoCacheStore::loaded()
{
    if (m_cachedState)
        return *m_cachedState;
    QFile file(m_stateFile);
    // Opening a pipe would wait for a writer.
    const bool isReadable = QFileInfo(m_stateFile).isFile() && file.open(QIODevice::ReadOnly);
    const auto decoded = isReadable ? decodedCacheState(file.read(largestState)) : RemoteVideoCacheState{};
    if (!decoded)
        m_logger.error(QStringLiteral("state read failed: ") + decoded.error());
    return m_cachedState.emplace(decoded.value_or(RemoteVideoCacheState{}));
}

void RemoteVideoCacheStore::persist()
{
    const QString problem = replaceFile(m_stateFile, encoded(loaded()));
    if (!problem.isEmpty())
        m_logger.error(QStringLiteral("state persist failed: ") + problem);
}

void RemoteVideoCacheStore::sweep()
{
    const RemoteVideoCacheState &state = loaded();
    QDir folder(m_videoDirectory);
    const QString stateName = QFileInfo(m_stateFile).fileName() + QLatin1Char('.');
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const bool isPart = name.startsWith(QLatin1Char('.')) && name.contains(QLatin1String(".part"));
        // What replacing a file makes beside it.
        const bool isCopy = name.startsWith(stateName) || name.startsWith(QLatin1String("manifest.json."));
        const bool isLost = name.endsWith(videoEnding) && !state.entries.contains(name.chopped(videoEnding.size()));
        if (isPart || isCopy || isLost)
            folder.remove(name);
    }
}

}
