#pragma once

#include "Media/LocalVideoCandidate.h"

#include <functional>
#include <optional>
#include <QtCore/QUuid>
#include <vector>

namespace tomcatto {

/// The videos that the application brings along. Main thread only.
class BundledVideoProviding
{
public:
    virtual ~BundledVideoProviding() = default;

    /// In the order of their file names.
    [[nodiscard]] virtual const std::vector<LocalVideoCandidate> &candidates() const = 0;
};

/// The user's own videos. Main thread only.
class UserVideoProviding
{
public:
    virtual ~UserVideoProviding() = default;

    using Candidates = std::vector<LocalVideoCandidate>;

    /// Lists the selected videos that can be played now; `done` is called at once or later, or never where nobody plays
    /// any more.
    virtual void candidates(std::function<void(const Candidates &)> done) = 0;
    virtual void markPlayed(const QUuid &id) = 0;
};

/// The downloaded videos of the remote library. Main thread only.
class RemoteVideoProviding
{
public:
    virtual ~RemoteVideoProviding() = default;

    /// The file to play next; nothing if there is none.
    [[nodiscard]] virtual std::optional<QUrl> nextVideoUrl() = 0;
};

}
