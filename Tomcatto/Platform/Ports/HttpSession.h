#pragma once

#include <chrono>
#include <expected>
#include <functional>
#include <QtCore/QByteArray>
#include <QtCore/QUrl>

namespace tomcatto {

/// How much of what was fetched may be kept for the next time, in bytes.
struct UrlCacheCapacity
{
    qint64 memory = 0;
    qint64 disk = 0;

    bool operator==(const UrlCacheCapacity &) const = default;
};

/// What is to be fetched with GET.
struct HttpRequest
{
    QUrl url;
    /// Where the body goes once it is whole, replacing what is there; empty for the answer's own `body`.
    QString file;
    /// The largest body that is taken, in bytes.
    qint64 largestBody = 0;
    /// How long the server may send nothing.
    std::chrono::seconds idleLimit{15};
    /// How long everything may take; 0 for as long as something comes.
    std::chrono::seconds wholeLimit{0};
    /// Whether a copy that is kept must not answer.
    bool reloads = false;
    /// Whether a copy may be kept.
    bool isKept = false;

    bool operator==(const HttpRequest &) const = default;
};

/// What the server answered. Only an answer from 200 to 299 has a body.
struct HttpResponse
{
    int statusCode = 0;
    QByteArray body;

    bool operator==(const HttpResponse &) const = default;
};

/// Why there is no answer.
struct HttpFailure
{
    enum class Kind {
        /// The server is not reached, falls silent, hangs up early, leads astray or is not the one it says it is.
        network,
        /// The body is larger than wanted, or packed although nobody asked for that.
        response,
        /// The file cannot be written.
        file,
    };

    Kind kind = Kind::network;
    /// For the log.
    QString description;

    bool operator==(const HttpFailure &) const = default;
};

using HttpResult = std::expected<HttpResponse, HttpFailure>;

/// Fetches over HTTP. Redirections are followed as far as `isTrustedRedirect` lets them; bodies come unpacked. Main
/// thread only.
class HttpSession
{
public:
    virtual ~HttpSession() = default;

    /// Says how much is kept. Before the first request.
    virtual void configureUrlCache(UrlCacheCapacity capacity) = 0;
    /// Fetches; the handlers are called in later turns of the main loop, `done` once and as the last. When the session
    /// goes before, they go with it uncalled. @param onProgress takes how many bytes have come and of how many, -1
    /// where nobody knows
    virtual void get(const HttpRequest &request, std::function<void(qint64 received, qint64 total)> onProgress,
                     std::function<void(const HttpResult &)> done) = 0;
};

}
