#pragma once

#include "Foundation/Date.h"
#include "Foundation/Logger.h"
#include "Media/Awaiting.h"
#include "Media/RemoteManifest.h"
#include "Media/RemoteManifestClientError.h"

#include <QCoro/QCoroTask>

namespace tomcatto {

/// Fetches the manifest of a remote library, and keeps the last good one on disk for when its server is not reached.
/// Main thread only; documents are read on a thread of their own.
class RemoteManifestClient final : public QObject
{
    Q_OBJECT

public:
    /// A manifest, and when it came from the server where that is not now.
    struct Fetched
    {
        RemoteManifest manifest;
        /// Set where this is the copy on disk.
        std::optional<Date> copiedAt;
        /// Why the server's could not be had.
        std::optional<RemoteManifestClientError> failure;
    };
    using Result = std::expected<Fetched, RemoteManifestClientError>;

    /// @param manifestUrlString the manifest's address; `nullopt` without a library. @param session outlives the
    /// client. @param cacheFile the file "manifest.json"
    RemoteManifestClient(std::optional<QString> manifestUrlString, HttpSession &session, QString cacheFile,
                         QObject *parent = nullptr);
    ~RemoteManifestClient() override;

    /// Whether there is an address at all.
    [[nodiscard]] bool hasAddress() const { return m_manifestUrlString && !m_manifestUrlString->isEmpty(); }
    /// The server's manifest; the copy on disk where the server is not reached or answers with an error. Called again
    /// once it is over.
    [[nodiscard]] QCoro::Task<Result> fetchManifest();
    /// The copy on disk; `nullopt` if there is none that can be read.
    [[nodiscard]] QCoro::Task<std::optional<Fetched>> cachedManifest();

private:
    [[nodiscard]] std::expected<QUrl, RemoteManifestClientError> address() const;
    [[nodiscard]] std::optional<RemoteManifestClientError> failureOf(const HttpResult &answer) const;
    [[nodiscard]] QCoro::Task<Result> copyInstead(RemoteManifestClientError failure, QString reason);

    std::optional<QString> m_manifestUrlString;
    HttpSession &m_session;
    QString m_cacheFile;
    Logger m_logger;
    SerialQueue m_queue;
};

/// Reads the copy of a manifest that is on disk. Blocking; any thread. @return `nullopt` if there is none; what cannot
/// be read is logged
[[nodiscard]] std::optional<RemoteManifestClient::Fetched> readCachedManifest(const QString &cacheFile,
                                                                              const Logger &logger);

}
