#pragma once

#include "Media/Awaiting.h"
#include "Media/RemoteVideoCacheStore.h"
#include "Platform/Ports/WallClock.h"

#include <QCoro/QCoroTask>

namespace tomcatto {

/// Why a video was not downloaded.
enum class RemoteVideoDownloaderError {
    invalidURL,
    networkFailure,
    invalidResponse,
    /// The file cannot be stored.
    fileMoveFailed,
};

/// One sentence for people.
[[nodiscard]] QString description(RemoteVideoDownloaderError error);

/// What to download.
struct RemoteVideoDownload
{
    QString url;
    QString id;
    QString sourceHash;
    /// Whether breaks play it then.
    bool userSelected = true;
};

/// Fetches videos of a remote library into the cache. Main thread only; several downloads may run at a time.
class RemoteVideoDownloader final : public QObject
{
    Q_OBJECT

public:
    /// As the error, why it is not there. A struct, as results of coroutines are made for values of one kind.
    struct Outcome
    {
        std::optional<RemoteVideoDownloaderError> error;
        /// The file of the cache.
        QUrl fileUrl;
    };

    /// All outlive the downloader.
    RemoteVideoDownloader(RemoteVideoCacheStore &cacheStore, HttpSession &session, const WallClock &clock,
                          QObject *parent = nullptr);
    ~RemoteVideoDownloader() override;

    /// Downloads a video and records it. @param onProgress takes fractions from 0 to 1
    [[nodiscard]] QCoro::Task<Outcome> download(RemoteVideoDownload video, std::function<void(double)> onProgress);

private:
    [[nodiscard]] std::optional<RemoteVideoDownloaderError> obstacleTo(const QUrl &url, const QString &id);
    [[nodiscard]] std::optional<RemoteVideoDownloaderError> failureOf(const HttpResult &answer,
                                                                      const QString &id) const;
    void record(const RemoteVideoDownload &video, qint64 sizeBytes);

    RemoteVideoCacheStore &m_cacheStore;
    HttpSession &m_session;
    const WallClock &m_clock;
    Logger m_logger;
};

}
