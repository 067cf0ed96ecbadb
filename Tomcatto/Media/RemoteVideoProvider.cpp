#include "Media/RemoteVideoProvider.h"

#include "Media/RemoteTrust.h"

#include <algorithm>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QRandomGenerator>
#include <ranges>

namespace tomcatto {

namespace {

using Outcome = RemoteVideoProvider::DownloadOutcome;

constexpr Seconds throttle{60};
constexpr qint64 cacheBudget = 500'000'000;
Outcome outcomeOf(std::optional<RemoteVideoDownloaderError> error)
{
    if (!error)
        return Outcome::done;
    switch (*error) {
    case RemoteVideoDownloaderError::networkFailure:
        return Outcome::unreachable;
    case RemoteVideoDownloaderError::invalidURL:
    case RemoteVideoDownloaderError::invalidResponse:
        return Outcome::refused;
    case RemoteVideoDownloaderError::fileMoveFailed:
        return Outcome::notStored;
    }
    return Outcome::refused;
}

}

RemoteVideoProvider::RemoteVideoProvider(RemoteManifestClient &manifestClient, RemoteVideoDownloader &downloader,
                                         RemoteVideoCacheStore &cacheStore, UserDefaults &defaults,
                                         const WallClock &clock, QRandomGenerator &random, Seeds seeds, QObject *parent)
    : QObject(parent)
    , m_manifestClient(manifestClient)
    , m_downloader(downloader)
    , m_cacheStore(cacheStore)
    , m_cats(defaults)
    , m_clock(clock)
    , m_random(random)
    , m_seeds(seeds)
    , m_logger(QStringLiteral("RemoteVideoProvider"))
{
}

void RemoteVideoProvider::start()
{
    if (isEnabled())
        startUp();
    else
        refresh(false);
}

QCoro::Task<> RemoteVideoProvider::startUp()
{
    const QPointer<RemoteVideoProvider> self(this);
    m_cacheStore.removeLeftovers();
    // Not on this thread: the folder may be large.
    AwaitedJob<bool> cleared(m_cacheStore.queue(), m_downloader, [] { return true; });
    co_await cleared;
    if (self)
        refresh(false);
}

void RemoteVideoProvider::showLast(std::function<void()> done)
{
    showCopy(std::move(done));
}

void RemoteVideoProvider::refresh(bool isForced, std::function<void()> done)
{
    if (done)
        m_waiting.push_back(std::move(done));
    if (!isEnabled()) {
        m_logger.info(QStringLiteral("REMOTE_MANIFEST_URL empty; remote pool disabled"));
        return finishRefresh({});
    }
    if (m_status.kind == SyncStatus::Kind::syncing)
        return;
    const Seconds age = m_clock.now() - m_lastSuccessfulRefresh.value_or(Date{});
    // A clock that was set back does not stop it for good.
    if (!isForced && m_lastSuccessfulRefresh && age >= Seconds{0} && age < throttle) {
        m_logger.info(QStringLiteral("manifest refresh skipped (throttled)"));
        return finishRefresh(m_status);
    }
    setStatus({SyncStatus::Kind::syncing, {}});
    synchronise();
}

QCoro::Task<> RemoteVideoProvider::synchronise()
{
    const QPointer<RemoteVideoProvider> self(this);
    if (!m_lastManifest) {
        auto showing = showCopy({});
        co_await showing;
        if (!self)
            co_return;
    }
    auto fetching = m_manifestClient.fetchManifest();
    auto fetched = co_await fetching;
    if (!self)
        co_return;
    if (fetched) {
        takeOver(std::move(*fetched));
        finishRefresh({});
        co_return;
    }
    m_logger.error(QStringLiteral("manifest refresh failed: ") + description(fetched.error()));
    finishRefresh({SyncStatus::Kind::failed, fetched.error()});
}

QCoro::Task<> RemoteVideoProvider::showCopy(std::function<void()> done)
{
    const QPointer<RemoteVideoProvider> self(this);
    auto reading = m_manifestClient.cachedManifest();
    const auto copy = co_await reading;
    if (!self)
        co_return;
    if (copy) {
        m_lastManifest = trustedPart(copy->manifest, m_logger);
        m_listDate = copy->copiedAt;
        rebuild();
    }
    if (done)
        done();
}

void RemoteVideoProvider::takeOver(RemoteManifestClient::Fetched fetched)
{
    m_lastManifest = trustedPart(std::move(fetched.manifest), m_logger);
    m_lastSuccessfulRefresh = m_clock.now();
    m_listDate = fetched.copiedAt.value_or(m_clock.now());
    m_offlineReason = fetched.failure;
    m_logger.info(QStringLiteral("manifest refresh ok: %1 entries").arg(listed().size()));
    reconcile();
    seedOnce();
    prune();
    rebuild();
    if (m_seeds == Seeds::areDownloaded)
        downloadSeeds();
}

void RemoteVideoProvider::reconcile()
{
    const RemoteVideoCacheState state = m_cacheStore.state();
    std::map<QString, QString> hashes;
    for (const RemoteVideoEntry &entry : listed())
        hashes.emplace(entry.id, entry.sourceHash);
    for (const auto &[id, entry] : state.entries) {
        const auto hash = hashes.find(id);
        if (hash != hashes.end() && hash->second == entry.sourceHash)
            continue;
        m_cacheStore.removeCachedVideo(id);
        m_logger.info(hash == hashes.end() ? QStringLiteral("dropped cached video no longer in manifest: ") + id
                                           : QStringLiteral("invalidated cached video %1: hash changed").arg(id));
    }
}

void RemoteVideoProvider::seedOnce()
{
    if (m_cats.areChosen() || listed().empty())
        return;
    const std::size_t count = std::min(DefaultCats::count, listed().size());
    QStringList missing;
    for (const RemoteVideoEntry &entry : listed() | std::views::take(count)) {
        // One that is there is only selected.
        if (!setSelected(entry.id, true))
            missing << entry.id;
    }
    m_cats.choose(missing);
    m_logger.info(QStringLiteral("seeded %1 default cats for break rotation").arg(count));
}

void RemoteVideoProvider::prune()
{
    const RemoteVideoCacheState state = m_cacheStore.state();
    for (const QString &id : beyondBudget(state, cacheBudget)) {
        m_logger.info(QStringLiteral("pruned cached video %1 (%2 bytes)").arg(id).arg(state.entries.at(id).sizeBytes));
        m_cacheStore.removeCachedVideo(id);
    }
}

QCoro::Task<> RemoteVideoProvider::downloadSeeds()
{
    if (std::exchange(m_isSeeding, true))
        co_return;
    const QPointer<RemoteVideoProvider> self(this);
    const QStringList seeds = m_cats.missing();
    for (const QString &id : seeds) {
        const RemoteVideoEntry *const entry = entryFor(id);
        // Meanwhile the user may have downloaded it, and removed it again.
        if (!entry || !m_cats.missing().contains(id) || m_inFlightDownloads.contains(id))
            continue;
        auto fetching = fetchVideo(*entry);
        // One that fails waits for the next refresh.
        co_await fetching;
        if (!self)
            co_return;
    }
    m_isSeeding = false;
}

void RemoteVideoProvider::download(const QString &id, DownloadDone done)
{
    const auto answer = [&done](Outcome outcome) {
        if (done)
            done(outcome);
    };
    const RemoteVideoEntry *const entry = entryFor(id);
    if (!entry)
        return answer(Outcome::notInManifest);
    if (setSelected(id, true))
        return answer(Outcome::done);
    const bool isUnderWay = m_inFlightDownloads.contains(id);
    m_inFlightDownloads[id].push_back(std::move(done));
    if (!isUnderWay)
        fetchVideo(*entry);
}

QCoro::Task<Outcome> RemoteVideoProvider::fetchVideo(RemoteVideoEntry entry)
{
    const QPointer<RemoteVideoProvider> self(this);
    m_inFlightDownloads[entry.id];
    showProgress(entry.id, 0);
    auto downloading = m_downloader.download(
        {.url = entry.video.url, .id = entry.id, .sourceHash = entry.sourceHash, .userSelected = true},
        [self, id = entry.id](double fraction) {
            if (self)
                self->showProgress(id, fraction);
        });
    const RemoteVideoDownloader::Outcome downloaded = co_await downloading;
    const Outcome outcome = outcomeOf(downloaded.error);
    if (!self)
        co_return outcome;
    const auto waiting = m_inFlightDownloads.extract(entry.id);
    m_inFlightProgress.erase(entry.id);
    if (outcome == Outcome::done)
        m_cats.take(entry.id);
    rebuildEntry(entry.id);
    for (const DownloadDone &done : waiting ? waiting.mapped() : std::vector<DownloadDone>()) {
        if (done)
            done(outcome);
    }
    co_return outcome;
}

void RemoteVideoProvider::showProgress(const QString &id, double fraction)
{
    m_inFlightProgress[id] = fraction;
    const auto row = std::ranges::find(m_entries, id, &RemoteVideoEntryView::id);
    if (row == m_entries.end())
        return;
    row->isDownloading = true;
    row->downloadProgress = fraction;
    Q_EMIT entryChanged(row - m_entries.begin());
}

bool RemoteVideoProvider::toggleSelection(const QString &id)
{
    const RemoteVideoCacheState state = m_cacheStore.state();
    const auto entry = state.entries.find(id);
    return entry != state.entries.end() && setSelected(id, !entry->second.userSelected);
}

bool RemoteVideoProvider::setSelected(const QString &id, bool isSelected)
{
    if (!isDownloaded(id))
        return false;
    m_cacheStore.mutate([&](RemoteVideoCacheState &state) { state.entries.at(id).userSelected = isSelected; });
    rebuildEntry(id);
    return true;
}

bool RemoteVideoProvider::remove(const QString &id)
{
    if (!isDownloaded(id))
        return false;
    m_cacheStore.removeCachedVideo(id);
    rebuildEntry(id);
    return true;
}

std::optional<QUrl> RemoteVideoProvider::nextVideoUrl()
{
    if (!isEnabled())
        return std::nullopt;
    std::vector<QString> ids;
    for (const auto &[id, entry] : m_cacheStore.state().entries) {
        if (entry.userSelected && QFileInfo::exists(m_cacheStore.filePath(id)))
            ids.push_back(id);
    }
    if (ids.empty())
        return std::nullopt;
    if (ids.size() > 1)
        std::erase_if(ids, [this](const QString &id) { return id == m_lastPickedId; });
    const QString picked = ids.at(m_random.bounded(static_cast<quint64>(ids.size())));
    m_lastPickedId = picked;
    m_cacheStore.mutate([this, &picked](RemoteVideoCacheState &state) {
        if (const auto entry = state.entries.find(picked); entry != state.entries.end())
            entry->second.lastPlayedAt = m_clock.now();
    });
    return QUrl::fromLocalFile(m_cacheStore.filePath(picked));
}

void RemoteVideoProvider::finishRefresh(SyncStatus status)
{
    setStatus(status);
    for (const auto &done : std::exchange(m_waiting, {}))
        done();
}

void RemoteVideoProvider::setStatus(SyncStatus status)
{
    if (std::exchange(m_status, status) != status)
        Q_EMIT statusChanged();
}

const std::vector<RemoteVideoEntry> &RemoteVideoProvider::listed() const
{
    static const std::vector<RemoteVideoEntry> nothing;
    return m_lastManifest ? m_lastManifest->videos : nothing;
}

const RemoteVideoEntry *RemoteVideoProvider::entryFor(const QString &id) const
{
    const auto found = std::ranges::find(listed(), id, &RemoteVideoEntry::id);
    return found != listed().end() ? &*found : nullptr;
}

bool RemoteVideoProvider::isDownloaded(const QString &id) const
{
    return m_cacheStore.state().entries.contains(id) && QFileInfo::exists(m_cacheStore.filePath(id));
}

RemoteVideoEntryView RemoteVideoProvider::viewOf(const RemoteVideoEntry &entry, const RemoteVideoCacheState &state,
                                                 const QStringList &seeds) const
{
    const auto cached = state.entries.find(entry.id);
    const QString file = m_cacheStore.filePath(entry.id);
    RemoteVideoEntryView view;
    view.id = entry.id;
    view.title = entry.title;
    view.sizeBytes = entry.video.sizeBytes;
    view.durationSec = entry.video.durationSec;
    view.thumbnailUrl = QUrl(entry.thumbnail.url);
    view.isCached = cached != state.entries.end() && QFileInfo::exists(file);
    view.userSelected = view.isCached ? cached->second.userSelected : seeds.contains(entry.id);
    if (view.isCached)
        view.localFileUrl = QUrl::fromLocalFile(file);
    if (const auto progress = m_inFlightProgress.find(entry.id); progress != m_inFlightProgress.end()) {
        view.isDownloading = true;
        view.downloadProgress = progress->second;
    }
    return view;
}

void RemoteVideoProvider::rebuild()
{
    const RemoteVideoCacheState state = m_cacheStore.state();
    const QStringList seeds = m_cats.missing();
    std::vector<RemoteVideoEntryView> views;
    for (const RemoteVideoEntry &entry : listed())
        views.push_back(viewOf(entry, state, seeds));
    if (std::exchange(m_entries, views) != views)
        Q_EMIT entriesChanged();
}

void RemoteVideoProvider::rebuildEntry(const QString &id)
{
    const RemoteVideoEntry *const entry = entryFor(id);
    const auto row = std::ranges::find(m_entries, id, &RemoteVideoEntryView::id);
    if (!entry || row == m_entries.end())
        return;
    *row = viewOf(*entry, m_cacheStore.state(), m_cats.missing());
    Q_EMIT entryChanged(row - m_entries.begin());
}

}
