#pragma once

#include "Localization/LocalizedStrings.h"
#include "Media/VideoFileValidator.h"

namespace tomcatto {

/// The title of a video that came along. @param identifier its file name without extension; unknown ones are their own
/// title
[[nodiscard]] QString includedVideoTitle(const LocalizedStrings &strings, const QString &identifier);

/// The name of a file on one line: a name may hold line breaks.
[[nodiscard]] QString shownName(const QString &name);
/// The same for a sentence: a long name without its middle.
[[nodiscard]] QString shortName(const QString &name);

/// The end of the key under "window.videos.error" that tells why a file was refused.
[[nodiscard]] QString refusalKey(VideoFileError error);

}
