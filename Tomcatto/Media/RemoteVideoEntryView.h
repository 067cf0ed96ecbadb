#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tomcatto {

/// One video of a remote library, as lists show it.
struct RemoteVideoEntryView
{
    /// What of it a list shows.
    enum class DisplayState {
        downloading,
        /// Not downloaded.
        idle,
        /// Downloaded, but breaks do not play it.
        cachedInactive,
        /// Breaks play it.
        selected,
    };

    QString id;
    QString title;
    qint64 sizeBytes = 0;
    qint64 durationSec = 0;
    /// A short clip; empty where it cannot be trusted.
    QUrl thumbnailUrl;
    bool isCached = false;
    /// Also of one that waits for being downloaded.
    bool userSelected = false;
    bool isDownloading = false;
    /// From 0 to 1.
    double downloadProgress = 0;
    /// The file, where it is downloaded.
    QUrl localFileUrl;

    [[nodiscard]] DisplayState displayState() const
    {
        if (isDownloading)
            return DisplayState::downloading;
        if (!isCached)
            return DisplayState::idle;
        return userSelected ? DisplayState::selected : DisplayState::cachedInactive;
    }

    bool operator==(const RemoteVideoEntryView &) const = default;
};

}
