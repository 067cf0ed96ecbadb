#pragma once

#include "Media/RemoteManifestClientError.h"

#include <optional>

namespace tomcatto {

/// How the remote library's list stands to its server.
struct SyncStatus
{
    enum class Kind { failed, idle, syncing };

    Kind kind = Kind::idle;
    /// Why it failed.
    std::optional<RemoteManifestClientError> error;

    /// Why it failed, in English; empty unless it did.
    [[nodiscard]] QString message() const { return error ? description(*error) : QString(); }

    bool operator==(const SyncStatus &) const = default;
};

}
