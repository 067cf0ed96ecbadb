#include "Publishing/LibraryPublisher.h"

#include "Foundation/TrustedAddress.h"
#include "Media/RemoteTrust.h"

#include <algorithm>
#include <cmath>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>

namespace tomcatto {

namespace {

using Kind = Refusal::Kind;

constexpr qint64 copiedAtOnce = qint64{1} << 20;
// By how much the seam may be less alike than neighbours are.
constexpr double unseenDifference = 0.02;
constexpr double slightDifference = 0.1;

const QString videosFolder = QStringLiteral("videos/");
const QString previewsFolder = QStringLiteral("previews/");

std::unexpected<Refusal> failed(Kind kind, const QString &path, const QString &reason)
{
    return std::unexpected(Refusal{kind, path + QStringLiteral(": ") + reason});
}

std::unexpected<Refusal> failed(const QFileDevice &file)
{
    return failed(Kind::failed, file.fileName(), file.errorString());
}

std::unexpected<Refusal> failed(const ClipFile &clip, StillFrameFailure reason)
{
    const Kind kind = reason == StillFrameFailure::unavailable ? Kind::notApplicable : Kind::failed;
    return failed(kind, clip.file.filePath(), description(reason) + QLatin1Char('.'));
}

/// The folder's address, to which names are added.
std::expected<QUrl, Refusal> folderAddress(QUrl base)
{
    if (!isTrustedAddress(base) || base.hasQuery() || base.hasFragment() || !base.userInfo().isEmpty())
        return failed(Kind::usage, base.toString(),
                      QStringLiteral("the address has to be https, or http of this machine, and end with the folder."));
    if (!base.path().endsWith(QLatin1Char('/')))
        base.setPath(base.path() + QLatin1Char('/'));
    return base;
}

QString address(const QUrl &base, const QString &name)
{
    QUrl url = base;
    url.setPath(base.path() + name);
    return url.toString(QUrl::FullyEncoded);
}

QString videoName(const ClipFile &clip)
{
    return videosFolder + clip.id + QLatin1Char('.') + clip.file.suffix().toLower();
}

QString previewName(const ClipFile &clip)
{
    return previewsFolder + clip.id + QStringLiteral(".mp4");
}

QString confidenceOf(const ClipFacts &facts)
{
    const double difference = facts.neighbourSimilarity - facts.seamSimilarity;
    if (difference <= unseenDifference)
        return QStringLiteral("high");
    return difference <= slightDifference ? QStringLiteral("medium") : QStringLiteral("low");
}

RemoteLoopInfo loopOf(const ClipFacts &facts)
{
    constexpr double tenThousandths = 10'000;
    RemoteLoopInfo loop;
    loop.confidence = confidenceOf(facts);
    loop.mode = loop.confidence == QStringLiteral("low") ? QStringLiteral("cut") : QStringLiteral("seamless");
    loop.detection = QStringLiteral("ssim");
    loop.seamSSIM = std::round(facts.seamSimilarity * tenThousandths) / tenThousandths;
    if (facts.framesPerSecond > 0)
        loop.fps = facts.framesPerSecond;
    return loop;
}

RemoteVideoEntry entryOf(const ClipFile &clip, const ClipFacts &facts, const ClipPreview &preview, const QUrl &base)
{
    const qint64 seconds = qMax(1L, std::lround(facts.durationSeconds));
    return {clip.id,
            clip.id,
            clip.title,
            {address(base, videoName(clip)), clip.file.size(), seconds, facts.width, facts.height, facts.codec,
             loopOf(facts)},
            {address(base, previewName(clip)), preview.mp4.size(), preview.width, preview.framesPerSecond,
             preview.durationSeconds},
            {}};
}

QString lineOf(const RemoteVideoEntry &entry)
{
    const RemoteVideoAsset &video = entry.video;
    return QStringLiteral("%1: %2 s, %3 × %4, %5, %6 bytes, seam %7 (%8)")
        .arg(entry.id, QString::number(video.durationSec), QString::number(video.width), QString::number(video.height),
             video.codec, QString::number(video.sizeBytes), QString::number(video.loop.seamSSIM.value_or(0)),
             video.loop.confidence.value_or(QString()));
}

std::expected<void, Refusal> writeWhole(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return failed(file);
    return {};
}

/// Copies a file by renaming a whole copy.
/// @return the hash of just those bytes, and their number
std::expected<std::pair<QString, qint64>, Refusal> copyHashed(const QString &from, const QString &to)
{
    QFile source(from);
    QSaveFile copy(to);
    if (!source.open(QIODevice::ReadOnly))
        return failed(source);
    if (!copy.open(QIODevice::WriteOnly))
        return failed(copy);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (QByteArray bytes = source.read(copiedAtOnce); !bytes.isEmpty(); bytes = source.read(copiedAtOnce)) {
        hash.addData(bytes);
        if (copy.write(bytes) != bytes.size())
            return failed(copy);
    }
    if (source.error() != QFileDevice::NoError)
        return failed(source);
    const qint64 size = copy.size();
    if (!copy.commit())
        return failed(copy);
    return std::pair(QString::fromLatin1(hash.result().toHex()), size);
}

std::expected<void, Refusal> makeFolders(const QDir &output)
{
    for (const QString &folder : {videosFolder, previewsFolder}) {
        if (!output.mkpath(folder))
            return failed(Kind::failed, output.filePath(folder), QStringLiteral("the folder cannot be made."));
    }
    return {};
}

}

LibraryPublisher::LibraryPublisher(const ClipStudio &studio, std::function<void(const QString &)> tell)
    : m_studio(studio)
    , m_tell(std::move(tell))
{
}

std::expected<LibraryPublisher::Item, Refusal> LibraryPublisher::itemOf(const ClipFile &clip, const QUrl &base) const
{
    if (clip.file.size() > largestRemoteVideo)
        return failed(Kind::failed, clip.file.filePath(), QStringLiteral("it is larger than 2 GB."));
    const auto facts = m_studio.examine(clip.file.filePath());
    if (!facts)
        return failed(clip, facts.error());
    auto preview = m_studio.makePreview(clip.file.filePath());
    if (!preview)
        return failed(clip, preview.error());
    RemoteVideoEntry entry = entryOf(clip, *facts, *preview, base);
    m_tell(lineOf(entry));
    return Item{clip, std::move(entry), std::move(preview->mp4)};
}

std::expected<std::vector<LibraryPublisher::Item>, Refusal>
LibraryPublisher::itemsOf(const std::vector<ClipFile> &clips, const QUrl &base) const
{
    std::vector<Item> items;
    for (const ClipFile &clip : clips) {
        auto item = itemOf(clip, base);
        if (!item)
            return std::unexpected(item.error());
        items.push_back(*std::move(item));
    }
    return items;
}

std::expected<std::size_t, Refusal> LibraryPublisher::publish(const PublishRequest &request) const
{
    const auto base = folderAddress(request.baseUrl);
    if (!base)
        return std::unexpected(base.error());
    const auto clips = clipsIn(request.folder);
    if (!clips)
        return std::unexpected(clips.error());
    auto items = itemsOf(*clips, *base);
    if (!items)
        return std::unexpected(items.error());
    return write(*std::move(items), QDir(request.output));
}

std::expected<std::size_t, Refusal> LibraryPublisher::write(std::vector<Item> items, const QDir &output)
{
    if (const auto made = makeFolders(output); !made)
        return std::unexpected(made.error());
    RemoteManifest manifest;
    QDateTime newest;
    for (Item &item : items) {
        const auto copied = copyHashed(item.clip.file.filePath(), output.filePath(videoName(item.clip)));
        if (!copied)
            return std::unexpected(copied.error());
        std::tie(item.entry.sourceHash, item.entry.video.sizeBytes) = *copied;
        if (const auto written = writeWhole(output.filePath(previewName(item.clip)), item.preview); !written)
            return std::unexpected(written.error());
        const QDateTime changed = item.clip.file.lastModified();
        newest = newest.isValid() ? std::max(newest, changed) : changed;
        manifest.videos.push_back(std::move(item.entry));
    }
    // Of the clips and not of this moment, so that the same ones make the same document.
    manifest.generatedAt = newest.toUTC().toString(Qt::ISODate);
    if (const auto written = writeWhole(output.filePath(QStringLiteral("manifest.json")), encoded(manifest)); !written)
        return std::unexpected(written.error());
    return manifest.videos.size();
}

}
