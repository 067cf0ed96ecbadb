#pragma once

#include "Media/DefaultCats.h"
#include "Media/RemoteManifestClient.h"
#include "Media/RemoteVideoDownloader.h"
#include "Media/RemoteVideoEntryView.h"
#include "Media/SyncStatus.h"
#include "Media/VideoProviding.h"
#include "Platform/Ports/UserDefaults.h"

#include <map>

class QRandomGenerator;

namespace tomcatto {

/// The remote library: its list, what of it is downloaded, and what breaks play. Main thread only.
class RemoteVideoProvider final : public QObject, public RemoteVideoProviding
{
    Q_OBJECT

public:
    /// What came of a download.
    enum class DownloadOutcome {
        done,
        /// The list does not have it.
        notInManifest,
        unreachable,
        /// The server's answer is not the video.
        refused,
        /// Its file cannot be stored.
        notStored,
    };
    /// Whether the first videos of a library come by themselves.
    enum class Seeds { areDownloaded, wait };
    using DownloadDone = std::function<void(DownloadOutcome)>;

    /// All outlive the provider.
    RemoteVideoProvider(RemoteManifestClient &manifestClient, RemoteVideoDownloader &downloader,
                        RemoteVideoCacheStore &cacheStore, UserDefaults &defaults, const WallClock &clock,
                        QRandomGenerator &random, Seeds seeds = Seeds::areDownloaded, QObject *parent = nullptr);

    /// Whether there is a library at all. Without one everything here is empty, and nothing of it is to be shown.
    [[nodiscard]] bool isEnabled() const { return m_manifestClient.hasAddress(); }
    /// One for each video of the library, in its order.
    [[nodiscard]] const std::vector<RemoteVideoEntryView> &entries() const noexcept { return m_entries; }
    [[nodiscard]] const SyncStatus &status() const noexcept { return m_status; }
    /// When the list was last refreshed; `nullopt` before the first time in this run.
    [[nodiscard]] std::optional<Date> lastSuccessfulRefresh() const noexcept { return m_lastSuccessfulRefresh; }
    /// When the list that is shown came from the server; `nullopt` while there is none.
    [[nodiscard]] std::optional<Date> listDate() const noexcept { return m_listDate; }
    /// Why the list that is shown is a former one, although the last refresh went well; `nullopt` if it is
    /// the server's.
    [[nodiscard]] std::optional<RemoteManifestClientError> offlineReason() const noexcept { return m_offlineReason; }

    /// Clears away what was left behind by force, then refreshes. Once.
    void start();
    /// Shows the list as it was last on disk; `done` is called in a later turn of the main loop.
    void showLast(std::function<void()> done);
    /// Fetches the list and brings the cache in line with it, at most once a minute unless it is forced. `done` is
    /// called at once or when the refresh that is under way is over.
    void refresh(bool isForced, std::function<void()> done = {});
    /// Downloads a video, which breaks play then; one that is there already is only selected. `done` is called at once
    /// or later.
    void download(const QString &id, DownloadDone done = {});
    /// Lets breaks play a downloaded video, or no longer. @return whether it is downloaded
    bool toggleSelection(const QString &id);
    bool setSelected(const QString &id, bool isSelected);
    /// Removes a downloaded video from the disk; the list keeps it. @return whether it was downloaded
    bool remove(const QString &id);
    /// Whether a video is on the disk, be it in the list or not.
    [[nodiscard]] bool isDownloaded(const QString &id) const;
    /// Whether the list has a video.
    [[nodiscard]] bool contains(const QString &id) const { return entryFor(id) != nullptr; }
    /// The file to play next, and notes that it plays: one of those that are downloaded and selected, at random, and
    /// not the last one again while there is another.
    [[nodiscard]] std::optional<QUrl> nextVideoUrl() override;

Q_SIGNALS:
    /// Any of `entries` may be another one.
    void entriesChanged();
    /// The one at the place has changed and is the same video.
    void entryChanged(qsizetype place);
    void statusChanged();

private:
    QCoro::Task<> startUp();
    QCoro::Task<> synchronise();
    QCoro::Task<> showCopy(std::function<void()> done);
    void takeOver(RemoteManifestClient::Fetched fetched);
    void reconcile();
    void seedOnce();
    void prune();
    QCoro::Task<> downloadSeeds();
    QCoro::Task<DownloadOutcome> fetchVideo(RemoteVideoEntry entry);
    void showProgress(const QString &id, double fraction);
    void finishRefresh(SyncStatus status);
    void setStatus(SyncStatus status);
    [[nodiscard]] const std::vector<RemoteVideoEntry> &listed() const;
    [[nodiscard]] const RemoteVideoEntry *entryFor(const QString &id) const;
    [[nodiscard]] RemoteVideoEntryView viewOf(const RemoteVideoEntry &entry, const RemoteVideoCacheState &state,
                                              const QStringList &seeds) const;
    void rebuild();
    void rebuildEntry(const QString &id);

    std::vector<RemoteVideoEntryView> m_entries;
    SyncStatus m_status;
    RemoteManifestClient &m_manifestClient;
    RemoteVideoDownloader &m_downloader;
    RemoteVideoCacheStore &m_cacheStore;
    DefaultCats m_cats;
    const WallClock &m_clock;
    QRandomGenerator &m_random;
    Seeds m_seeds;
    Logger m_logger;
    std::optional<RemoteManifest> m_lastManifest;
    /// Those who wait for each download.
    std::map<QString, std::vector<DownloadDone>> m_inFlightDownloads;
    std::map<QString, double> m_inFlightProgress;
    std::optional<QString> m_lastPickedId;
    std::optional<Date> m_lastSuccessfulRefresh;
    std::optional<Date> m_listDate;
    std::optional<RemoteManifestClientError> m_offlineReason;
    std::vector<std::function<void()>> m_waiting;
    bool m_isSeeding = false;
};

}
