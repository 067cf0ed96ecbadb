#pragma once

#include <expected>
#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <vector>

namespace tomcatto {

/// How a clip loops.
struct RemoteLoopInfo
{
    QString mode;
    /// The length of the cross-fade at the seam, in seconds.
    double crossfadeSec = 0;
    /// How the seam was found.
    std::optional<QString> detection;
    /// The structural similarity across the seam, at most 1.
    std::optional<double> seamSSIM;
    std::optional<QString> confidence;
    /// Frames per second.
    std::optional<qint64> fps;

    bool operator==(const RemoteLoopInfo &) const = default;
};

/// The file that plays.
struct RemoteVideoAsset
{
    /// Absolute.
    QString url;
    qint64 sizeBytes = 0;
    qint64 durationSec = 0;
    /// Pixels.
    qint64 width = 0;
    qint64 height = 0;
    QString codec;
    RemoteLoopInfo loop;

    bool operator==(const RemoteVideoAsset &) const = default;
};

/// A short clip without sound for lists.
struct RemoteThumbnailAsset
{
    /// Absolute.
    QString url;
    qint64 sizeBytes = 0;
    /// Pixels.
    qint64 width = 0;
    qint64 fps = 0;
    qint64 durationSec = 0;

    bool operator==(const RemoteThumbnailAsset &) const = default;
};

/// One video of a remote library.
struct RemoteVideoEntry
{
    /// Stays the same for ever; the cache goes by it.
    QString id;
    QString slug;
    QString title;
    RemoteVideoAsset video;
    RemoteThumbnailAsset thumbnail;
    /// Changes when the file does.
    QString sourceHash;

    bool operator==(const RemoteVideoEntry &) const = default;
};

/// What a remote library holds, as its server publishes it: one JSON document.
struct RemoteManifest
{
    qint64 version = 1;
    /// When the document was made; a text for people.
    QString generatedAt;
    /// In the server's order.
    std::vector<RemoteVideoEntry> videos;

    bool operator==(const RemoteManifest &) const = default;
};

/// The largest document that is read, in bytes.
inline constexpr qint64 largestManifest = qint64{16} * 1024 * 1024;

/// One JSON object with the fields by name and in order, a line for each video; what is absent is left out. Any thread.
[[nodiscard]] QByteArray encoded(const RemoteManifest &manifest);
/// Reads a document that may be hostile: every field but those that may be absent has to be there with its type, fields
/// that are not known are passed over, and memory is taken for what is known alone. The error names what is wrong. Any
/// thread.
[[nodiscard]] std::expected<RemoteManifest, QString> decodedManifest(const QByteArray &json);

}
