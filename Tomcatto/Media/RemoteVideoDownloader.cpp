#include "Media/RemoteVideoDownloader.h"

#include "Foundation/EnumTexts.h"
#include "Foundation/TrustedAddress.h"
#include "Media/RemoteDownloadDelegate.h"
#include "Media/RemoteTrust.h"

#include <QtCore/QFile>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

using Error = RemoteVideoDownloaderError;
using Outcome = RemoteVideoDownloader::Outcome;

constexpr std::chrono::seconds idleLimit{15};

/// A size in bytes, or why there is none.
struct TakenFile
{
    qint64 sizeBytes = 0;
    QString problem;
};

}

QString description(RemoteVideoDownloaderError error)
{
    return textOf(std::array{"The video's address cannot be used.", "The video's server cannot be reached.",
                             "The video's server does not have it.",
                             "The video's file cannot be stored; the log says why."},
                  error);
}

RemoteVideoDownloader::RemoteVideoDownloader(RemoteVideoCacheStore &cacheStore, HttpSession &session,
                                             const WallClock &clock, QObject *parent)
    : QObject(parent)
    , m_cacheStore(cacheStore)
    , m_session(session)
    , m_clock(clock)
    , m_logger(QStringLiteral("RemoteVideoDownloader"))
{
}

RemoteVideoDownloader::~RemoteVideoDownloader()
{
    // What is put in its place by a job comes back to this object.
    m_cacheStore.queue().drain();
}

QCoro::Task<Outcome> RemoteVideoDownloader::download(RemoteVideoDownload video, std::function<void(double)> onProgress)
{
    const QPointer<RemoteVideoDownloader> self(this);
    const QUrl url(video.url, QUrl::StrictMode);
    if (const auto error = obstacleTo(url, video.id))
        co_return Outcome{error, {}};
    const QString part = m_cacheStore.partPath(video.id);
    const auto delegate = std::make_shared<RemoteDownloadDelegate>(std::move(onProgress));
    AwaitedAnswer request(m_session,
                          {.url = url, .file = part, .largestBody = largestRemoteVideo, .idleLimit = idleLimit},
                          [delegate](qint64 received, qint64 total) { delegate->didReceive(received, total); });
    const HttpResult answer = co_await request;
    if (!self) {
        // It may have come whole in the moment when the application ends.
        QFile::remove(part);
        co_return Outcome{Error::networkFailure, {}};
    }
    if (const auto error = failureOf(answer, video.id))
        co_return Outcome{error, {}};
    AwaitedJob<TakenFile> taking(m_cacheStore.queue(), *this, [&store = m_cacheStore, id = video.id] {
        const auto size = store.takeFile(id);
        return size ? TakenFile{*size, {}} : TakenFile{0, size.error()};
    });
    const TakenFile taken = co_await taking;
    if (!self)
        co_return Outcome{Error::fileMoveFailed, {}};
    if (!taken.problem.isEmpty()) {
        m_logger.error(QStringLiteral("move failed for %1: %2").arg(video.id, taken.problem));
        co_return Outcome{Error::fileMoveFailed, {}};
    }
    record(video, taken.sizeBytes);
    // Who hears of the end strikes it off what is still to come, at once and for good: by then the disk knows of it.
    AwaitedJob<bool> storing(m_cacheStore.queue(), *this, [] { return true; });
    if (const bool isStored = co_await storing; !isStored || !self)
        co_return Outcome{Error::fileMoveFailed, {}};
    delegate->didFinish();
    co_return Outcome{{}, QUrl::fromLocalFile(m_cacheStore.filePath(video.id))};
}

std::optional<Error> RemoteVideoDownloader::obstacleTo(const QUrl &url, const QString &id)
{
    const QString failed = QStringLiteral("download failed for %1: ").arg(id);
    if (!isTrustedAddress(url) || !isPlainFileName(id)) {
        m_logger.error(failed + QStringLiteral("its address or its identifier cannot be used"));
        return Error::invalidURL;
    }
    if (!m_cacheStore.makeDirectory()) {
        m_logger.error(failed + QStringLiteral("the folder cannot be made"));
        return Error::fileMoveFailed;
    }
    return std::nullopt;
}

std::optional<Error> RemoteVideoDownloader::failureOf(const HttpResult &answer, const QString &id) const
{
    if (answer) {
        constexpr int hundred = 100;
        constexpr int success = 2;
        if (answer->statusCode / hundred == success)
            return std::nullopt;
        m_logger.error(QStringLiteral("download HTTP %1 for %2").arg(answer->statusCode).arg(id));
        return Error::invalidResponse;
    }
    const HttpFailure &failure = answer.error();
    const bool isNetwork = failure.kind == HttpFailure::Kind::network;
    const QString text =
        isNetwork ? QStringLiteral("download network error for %1: %2") : QStringLiteral("download failed for %1: %2");
    m_logger.error(text.arg(id, failure.description));
    if (isNetwork)
        return Error::networkFailure;
    return failure.kind == HttpFailure::Kind::response ? Error::invalidResponse : Error::fileMoveFailed;
}

void RemoteVideoDownloader::record(const RemoteVideoDownload &video, qint64 sizeBytes)
{
    m_cacheStore.mutate([&](RemoteVideoCacheState &state) {
        state.entries.insert_or_assign(video.id, RemoteVideoCacheEntry{.sourceHash = video.sourceHash,
                                                                       .downloadedAt = m_clock.now(),
                                                                       .sizeBytes = sizeBytes,
                                                                       .lastPlayedAt = {},
                                                                       .userSelected = video.userSelected});
    });
    m_logger.info(QStringLiteral("cached remote video ") + video.id);
}

}
