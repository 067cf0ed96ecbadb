#pragma once

#include "Foundation/Date.h"

#include <expected>
#include <map>
#include <optional>
#include <vector>

namespace tomcatto {

/// One video of a remote library that was downloaded.
struct RemoteVideoCacheEntry
{
    /// The manifest's at the time of the download.
    QString sourceHash;
    Date downloadedAt;
    /// The file's size on disk.
    qint64 sizeBytes = 0;
    std::optional<Date> lastPlayedAt;
    /// Whether breaks play it.
    bool userSelected = false;

    bool operator==(const RemoteVideoCacheEntry &) const = default;
};

/// The downloaded videos by their identifiers.
struct RemoteVideoCacheState
{
    std::map<QString, RemoteVideoCacheEntry> entries;

    bool operator==(const RemoteVideoCacheState &) const = default;
};

/// The videos that go first when all may take `budget` bytes: those that breaks do not play, what was not played, or
/// else not downloaded, for the longest time before the others. What breaks play stays.
[[nodiscard]] std::vector<QString> beyondBudget(RemoteVideoCacheState state, qint64 budget);

/// One JSON object, instants as ISO 8601 texts in UTC to the second. Any thread.
[[nodiscard]] QByteArray encoded(const RemoteVideoCacheState &state);
/// Reads one back. Identifiers that are not plain file names are left out. The error names what is wrong. Any thread.
[[nodiscard]] std::expected<RemoteVideoCacheState, QString> decodedCacheState(const QByteArray &json);

}
