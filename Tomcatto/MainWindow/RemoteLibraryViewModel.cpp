#include "MainWindow/RemoteLibraryViewModel.h"

#include "MainWindow/VideoStill.h"

#include <QtCore/QBuffer>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

/// In characters: about fifty of them.
constexpr qsizetype mostStillCharacters = 4'000'000;

}

RemoteLibraryViewModel::RemoteLibraryViewModel(RemoteVideoProvider &provider, RemoteStills &stills,
                                               const LocalizedStrings &strings, const WallClock &clock,
                                               MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_provider(provider)
    , m_pictures(stills)
    , m_strings(strings)
    , m_clock(clock)
    , m_runLoop(runLoop)
    , m_videos(provider, strings)
    , m_stills(mostStillCharacters)
{
    connect(&provider, &RemoteVideoProvider::statusChanged, this, &RemoteLibraryViewModel::statusChanged);
    connect(&provider, &RemoteVideoProvider::entriesChanged, this, &RemoteLibraryViewModel::statusChanged);
    connect(&strings, &LocalizedStrings::changed, this, &RemoteLibraryViewModel::changed);
    connect(&stills, &RemoteStills::ready, this, &RemoteLibraryViewModel::stillReady);
}

bool RemoteLibraryViewModel::isChecking() const
{
    return m_provider.status().kind == SyncStatus::Kind::syncing;
}

QString RemoteLibraryViewModel::checkedText() const
{
    const auto key = [](const char *end) { return QStringLiteral("window.videos.library.") + QLatin1StringView(end); };
    if (isChecking())
        return m_strings.text(key("checking"));
    const auto checked = m_provider.listDate();
    if (!checked)
        return m_strings.text(key("never_checked"));
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    constexpr qint64 day = 24 * hour;
    // A clock that was set back makes it just now.
    const auto age = static_cast<qint64>(Seconds(m_clock.now() - *checked).count());
    if (age < minute)
        return m_strings.text(key("checked_now"));
    if (age < hour)
        return m_strings.plural(key("checked_minutes"), age / minute);
    if (age < day)
        return m_strings.plural(key("checked_hours"), age / hour);
    return m_strings.format(key("checked_date"),
                            m_strings.locale().toString(toDateTime(*checked).toLocalTime().date(),
                                                        m_strings.text(QStringLiteral("date.day_month"))));
}

std::optional<RemoteManifestClientError> RemoteLibraryViewModel::error() const
{
    return m_provider.status().error ? m_provider.status().error : m_provider.offlineReason();
}

QString RemoteLibraryViewModel::problem() const
{
    const auto reason = isChecking() ? std::nullopt : error();
    if (!reason)
        return {};
    return m_strings.text(reason == RemoteManifestClientError::networkFailure
                              ? QStringLiteral("window.videos.library.failed")
                              : QStringLiteral("window.videos.library.failed_answer"));
}

void RemoteLibraryViewModel::appear()
{
    if (!isEnabled())
        return;
    m_minutes = m_runLoop.every(std::chrono::minutes{1}, [this] { Q_EMIT changed(); });
    m_provider.refresh(false);
}

void RemoteLibraryViewModel::disappear()
{
    m_minutes.cancel();
    m_stills.clear();
    m_pictures.forget();
}

void RemoteLibraryViewModel::statusChanged()
{
    if (!isChecking())
        m_videos.setOffline(error().has_value());
    Q_EMIT changed();
}

void RemoteLibraryViewModel::askStill(const QString &id, double scale)
{
    if (const QString made = still(id, scale); !made.isEmpty())
        Q_EMIT stillCame(id, made);
}

QString RemoteLibraryViewModel::still(const QString &id, double scale)
{
    const QString key = id + QLatin1Char('@') + QString::number(scale);
    if (const QString *const known = m_stills.object(key))
        return *known;
    const RemoteVideoEntryView *const video = m_videos.entry(id);
    if (!video)
        return {};
    QByteArray picture = m_pictures.still(*video);
    QBuffer buffer(&picture);
    if (picture.isEmpty() || !buffer.open(QIODevice::ReadOnly))
        return {};
    QString made = videoStillAddress(buffer, scale);
    m_stills.insert(key, new QString(made), made.size() + 1);
    return made;
}

void RemoteLibraryViewModel::refresh()
{
    m_provider.refresh(true);
}

void RemoteLibraryViewModel::press(const QString &id)
{
    const RemoteVideoEntryView *const video = m_videos.entry(id);
    if (!video || video->isDownloading)
        return;
    if (video->isCached) {
        m_provider.toggleSelection(id);
        return;
    }
    if (error())
        return;
    m_videos.setOutcome(id, {});
    m_provider.download(id, [self = QPointer(this), id](RemoteVideoProvider::DownloadOutcome outcome) {
        if (self)
            self->m_videos.setOutcome(id, outcome);
    });
}

void RemoteLibraryViewModel::remove(const QString &id)
{
    m_provider.remove(id);
}

void RemoteLibraryViewModel::preview(const QString &id)
{
    const RemoteVideoEntryView *const video = m_videos.entry(id);
    if (video && video->isCached)
        Q_EMIT previewRequested(video->localFileUrl);
}

}
