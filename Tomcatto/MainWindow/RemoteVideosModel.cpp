#include "MainWindow/RemoteVideosModel.h"

#include "MainWindow/VideoTexts.h"

#include <algorithm>
#include <cmath>

namespace tomcatto {

namespace {

using State = RemoteVideoEntryView::DisplayState;

// What a server sends is shown, however long it is.
constexpr qsizetype longestTitle = 200;

QString statusOf(const RemoteVideoEntryView &entry)
{
    switch (entry.displayState()) {
    case State::downloading:
        return QStringLiteral("downloading");
    case State::idle:
        return QStringLiteral("missing");
    case State::cachedInactive:
        return QStringLiteral("resting");
    case State::selected:
        return QStringLiteral("active");
    }
    return {};
}

QString lengthText(qint64 seconds)
{
    constexpr qint64 longest = 359'999;
    const qint64 shown = qBound(qint64{0}, seconds, longest);
    return QStringLiteral("%1:%2").arg(shown / 60).arg(shown % 60, 2, 10, QLatin1Char('0'));
}

QString failureKey(RemoteVideosModel::Outcome outcome)
{
    using Outcome = RemoteVideosModel::Outcome;
    switch (outcome) {
    case Outcome::unreachable:
        return QStringLiteral("window.videos.library.download.unreachable");
    case Outcome::done:
    case Outcome::notInManifest:
    case Outcome::refused:
        return QStringLiteral("window.videos.library.download.refused");
    case Outcome::notStored:
        return QStringLiteral("window.videos.library.download.not_stored");
    }
    return {};
}

}

RemoteVideosModel::RemoteVideosModel(const RemoteVideoProvider &provider, const LocalizedStrings &strings,
                                     QObject *parent)
    : QAbstractListModel(parent)
    , m_provider(provider)
    , m_strings(strings)
{
    connect(&provider, &RemoteVideoProvider::entriesChanged, this, &RemoteVideosModel::catchUp);
    connect(&provider, &RemoteVideoProvider::entryChanged, this, &RemoteVideosModel::changeRow);
    connect(&strings, &LocalizedStrings::changed, this, &RemoteVideosModel::changeAll);
    catchUp();
}

int RemoteVideosModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size());
}

QVariant RemoteVideosModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const RemoteVideoEntryView &entry = m_provider.entries().at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case videoId:
        return entry.id;
    case Qt::DisplayRole:
    case title:
        return shownName(entry.title.left(longestTitle));
    case caption:
        return captionOf(entry);
    case hasFailed:
        return !failureOf(entry).isEmpty();
    case status:
        return statusOf(entry);
    case progress:
        return entry.downloadProgress;
    case progressText:
        return m_strings.format(QStringLiteral("window.videos.percent"),
                                m_strings.locale().toString(std::lround(entry.downloadProgress * 100)));
    case chip:
        return chipOf(entry);
    case chipSymbol:
        return chipSymbolOf(entry);
    default:
        return {};
    }
}

QHash<int, QByteArray> RemoteVideosModel::roleNames() const
{
    return {{videoId, "videoId"},           {title, "title"},   {caption, "caption"},
            {hasFailed, "hasFailed"},       {status, "status"}, {progress, "progress"},
            {progressText, "progressText"}, {chip, "chip"},     {chipSymbol, "chipSymbol"}};
}

const RemoteVideoEntryView *RemoteVideosModel::entry(const QString &id) const
{
    const auto &entries = m_provider.entries();
    const auto found = std::ranges::find(entries, id, &RemoteVideoEntryView::id);
    return found == entries.end() ? nullptr : &*found;
}

void RemoteVideosModel::setOutcome(const QString &id, std::optional<Outcome> outcome)
{
    if (outcome && *outcome != Outcome::done)
        m_failures.insert_or_assign(id, *outcome);
    else
        m_failures.erase(id);
    if (const RemoteVideoEntryView *const video = entry(id))
        changeRow(video - m_provider.entries().data());
}

void RemoteVideosModel::setOffline(bool isOffline)
{
    if (std::exchange(m_isOffline, isOffline) != isOffline)
        changeAll();
}

void RemoteVideosModel::catchUp()
{
    std::vector<QString> ids;
    for (const RemoteVideoEntryView &entry : m_provider.entries())
        ids.push_back(entry.id);
    // Tiles stay, and with them the keyboard's place.
    if (ids == m_ids)
        return changeAll();
    beginResetModel();
    m_ids = std::move(ids);
    endResetModel();
}

void RemoteVideosModel::changeAll()
{
    if (!m_ids.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void RemoteVideosModel::changeRow(qsizetype row)
{
    const QModelIndex changed = index(static_cast<int>(row));
    Q_EMIT dataChanged(changed, changed);
}

QString RemoteVideosModel::failureOf(const RemoteVideoEntryView &entry) const
{
    const auto failure = m_failures.find(entry.id);
    if (failure == m_failures.end() || entry.displayState() != State::idle)
        return {};
    return m_strings.format(failureKey(failure->second), size(entry.sizeBytes));
}

bool RemoteVideosModel::waits(const RemoteVideoEntryView &entry) const
{
    return entry.userSelected && entry.displayState() == State::idle && !m_isOffline;
}

QString RemoteVideosModel::captionOf(const RemoteVideoEntryView &entry) const
{
    if (QString failure = failureOf(entry); !failure.isEmpty())
        return failure;
    if (waits(entry))
        return m_strings.text(QStringLiteral("window.videos.caption.waiting"));
    QString length = lengthText(entry.durationSec);
    switch (entry.displayState()) {
    case State::downloading:
        return m_strings.format(QStringLiteral("window.videos.caption.downloading"),
                                megabytes(entry.downloadProgress * static_cast<double>(entry.sizeBytes)),
                                size(entry.sizeBytes));
    case State::idle:
        return length;
    case State::cachedInactive:
    case State::selected:
        return m_strings.format(QStringLiteral("window.videos.caption.join"), length,
                                m_strings.text(entry.userSelected ? QStringLiteral("window.videos.caption.plays")
                                                                  : QStringLiteral("window.videos.caption.resting")));
    }
    return {};
}

QString RemoteVideosModel::chipOf(const RemoteVideoEntryView &entry) const
{
    if (!failureOf(entry).isEmpty())
        return m_strings.text(QStringLiteral("button.try_again"));
    return waits(entry) ? m_strings.text(QStringLiteral("window.videos.waiting")) : size(entry.sizeBytes);
}

QString RemoteVideosModel::chipSymbolOf(const RemoteVideoEntryView &entry) const
{
    if (!failureOf(entry).isEmpty())
        return QStringLiteral("arrow.clockwise");
    return waits(entry) || m_isOffline ? QString() : QStringLiteral("arrow.down.circle");
}

QString RemoteVideosModel::megabytes(double bytes) const
{
    constexpr double megabyte = 1e6;
    return m_strings.locale().toString(bytes / megabyte, 'f', 1);
}

QString RemoteVideosModel::size(qint64 bytes) const
{
    constexpr double least = 1e5;
    return m_strings.format(QStringLiteral("window.videos.size_megabytes"),
                            megabytes(qMax(least, static_cast<double>(bytes))));
}

}
