#pragma once

#include "Foundation/Date.h"

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUuid>

namespace tomcatto {

/// One video that the user added, as it is stored.
struct UserVideo
{
    QUuid id;
    QString displayName;
    /// Finds the user's file; the application keeps no copy of it.
    QByteArray bookmarkData;
    /// Empty: reserved for a copy of the application's own.
    QString localCopyPath;
    /// Length in seconds; 0 while it is unknown.
    double durationSeconds = 0;
    std::optional<Date> addedAt;
    std::optional<Date> lastPlayedAt;
    qint32 playCount = 0;
    /// A JPEG, or empty. Lists leave it empty, `UserVideoRepository::video` fills it.
    QByteArray thumbnailData;
    /// Whether it plays on breaks.
    bool userSelected = false;

    bool operator==(const UserVideo &) const = default;
};

/// Why an operation on the user's videos failed.
enum class UserVideoRepositoryError { videoNotFound, bookmarkResolutionFailed };

/// What became of a write to an existing or new record. A failed save is logged, and the store is as before.
enum class UserVideoSave { saved, failed };

}
