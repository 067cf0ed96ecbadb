#pragma once

#include "Platform/Ports/ClipStudio.h"

namespace tomcatto {

/// Looks at clips with the FFmpeg libraries, at most ten minutes at each. Only files are read, nothing that a file
/// refers to. Any thread.
class FfmpegClipStudio : public ClipStudio
{
public:
    [[nodiscard]] std::expected<ClipFacts, StillFrameFailure> examine(const QString &path) const override;
    [[nodiscard]] std::expected<ClipPreview, StillFrameFailure> makePreview(const QString &path) const override;
};

}
