#include "Media/RemoteManifestClient.h"

#include "Foundation/TrustedAddress.h"
#include "Media/WholeFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

using Error = RemoteManifestClientError;
using Result = RemoteManifestClient::Result;
using Fetched = RemoteManifestClient::Fetched;

constexpr std::chrono::seconds timeLimit{15};

Result failure(Error error)
{
    return std::unexpected(error);
}

/// What became of a document.
struct Decoded
{
    std::optional<RemoteManifest> manifest;
    QString problem;
    QString writeProblem;
};

Decoded decodeAndKeep(const QByteArray &body, const QString &cacheFile)
{
    auto manifest = decodedManifest(body);
    if (!manifest)
        return {std::nullopt, manifest.error(), {}};
    QString problem = replaceFile(cacheFile, encoded(*manifest));
    return {std::move(*manifest), {}, std::move(problem)};
}

}

RemoteManifestClient::RemoteManifestClient(std::optional<QString> manifestUrlString, HttpSession &session,
                                           QString cacheFile, QObject *parent)
    : QObject(parent)
    , m_manifestUrlString(std::move(manifestUrlString))
    , m_session(session)
    , m_cacheFile(std::move(cacheFile))
    , m_logger(QStringLiteral("RemoteManifestClient"))
{
}

RemoteManifestClient::~RemoteManifestClient()
{
    m_queue.drain();
}

QCoro::Task<Result> RemoteManifestClient::fetchManifest()
{
    const QPointer<RemoteManifestClient> self(this);
    const auto url = address();
    if (!url)
        co_return failure(url.error());
    AwaitedAnswer request(m_session, {.url = *url,
                                      .file = {},
                                      .largestBody = largestManifest,
                                      .idleLimit = timeLimit,
                                      .wholeLimit = timeLimit,
                                      .reloads = true,
                                      .isKept = true});
    const HttpResult answer = co_await request;
    if (!self)
        co_return failure(Error::networkFailure);
    if (const auto error = failureOf(answer)) {
        auto copy = copyInstead(*error, answer ? QString() : answer.error().description);
        co_return co_await copy;
    }
    AwaitedJob<Decoded> job(m_queue, *this,
                            [body = answer->body, file = m_cacheFile] { return decodeAndKeep(body, file); });
    Decoded decoded = co_await job;
    if (!self)
        co_return failure(Error::networkFailure);
    if (!decoded.manifest) {
        m_logger.error(QStringLiteral("manifest decode failed: ") + decoded.problem);
        co_return failure(Error::decodingFailed);
    }
    if (!decoded.writeProblem.isEmpty())
        m_logger.error(QStringLiteral("manifest cache write failed: ") + decoded.writeProblem);
    co_return Result(Fetched{std::move(*decoded.manifest), {}, {}});
}

QCoro::Task<std::optional<Fetched>> RemoteManifestClient::cachedManifest()
{
    AwaitedJob<std::optional<Fetched>> job(
        m_queue, *this, [file = m_cacheFile, logger = m_logger] { return readCachedManifest(file, logger); });
    co_return co_await job;
}

std::expected<QUrl, Error> RemoteManifestClient::address() const
{
    if (!m_manifestUrlString)
        return std::unexpected(Error::missingURL);
    QUrl url(*m_manifestUrlString, QUrl::StrictMode);
    if (isTrustedAddress(url))
        return url;
    m_logger.error(QStringLiteral("the manifest's address is neither https nor of this machine: ") +
                   *m_manifestUrlString);
    return std::unexpected(Error::invalidURL);
}

std::optional<Error> RemoteManifestClient::failureOf(const HttpResult &answer) const
{
    constexpr int firstSuccess = 200;
    constexpr int firstRedirection = 300;
    constexpr int firstServerError = 500;
    constexpr int lastServerError = 599;
    if (!answer) {
        m_logger.error(QStringLiteral("manifest fetch network error: ") + answer.error().description);
        return answer.error().kind == HttpFailure::Kind::response ? Error::invalidResponse : Error::networkFailure;
    }
    const int code = answer->statusCode;
    if (code >= firstSuccess && code < firstRedirection)
        return std::nullopt;
    m_logger.error(QStringLiteral("manifest fetch returned HTTP %1").arg(code));
    return code >= firstServerError && code <= lastServerError ? Error::networkFailure : Error::invalidResponse;
}

QCoro::Task<Result> RemoteManifestClient::copyInstead(Error error, QString reason)
{
    const QPointer<RemoteManifestClient> self(this);
    auto reading = cachedManifest();
    auto copy = co_await reading;
    if (!copy || !self)
        co_return failure(error);
    m_logger.info(reason.isEmpty() ? QStringLiteral("manifest fetch failed; serving cached copy")
                                   : QStringLiteral("manifest fetch failed (%1); serving cached copy").arg(reason));
    copy->failure = error;
    co_return Result(std::move(*copy));
}

std::optional<Fetched> readCachedManifest(const QString &cacheFile, const Logger &logger)
{
    const QFileInfo info(cacheFile);
    if (!info.exists())
        return std::nullopt;
    QFile file(cacheFile);
    // Opening a pipe would wait for a writer.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        logger.error(QStringLiteral("manifest cache read failed: ") +
                     (info.isFile() ? file.errorString() : QStringLiteral("it is not a file")));
        return std::nullopt;
    }
    auto manifest = decodedManifest(file.read(largestManifest));
    if (!manifest) {
        logger.error(QStringLiteral("manifest cache read failed: ") + manifest.error());
        return std::nullopt;
    }
    return Fetched{std::move(*manifest), toDate(info.lastModified()), {}};
}

}
