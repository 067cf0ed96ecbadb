#pragma once

#include "Media/RemoteManifest.h"

namespace tomcatto {

class Logger;

/// The largest file of a remote library that is taken, in bytes.
inline constexpr qint64 largestRemoteVideo = 2'000'000'000;

/// Whether a text from elsewhere can be the name of a file, with an ending added, and of nothing else.
[[nodiscard]] bool isPlainFileName(const QString &text);

/// What of a manifest can be offered: without videos whose identifier, address or size cannot be used, and each
/// identifier once. An address of a preview that cannot be used is emptied. What is refused is logged as an error.
[[nodiscard]] RemoteManifest trustedPart(RemoteManifest manifest, const Logger &logger);

}
