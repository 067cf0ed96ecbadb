#pragma once

#include "Media/VideoProviding.h"

namespace tomcatto {

/// The videos in the application's own folder "BundledVideos", read once. Main thread only.
class BundledVideoProvider final : public BundledVideoProviding
{
public:
    /// @param directory the folder, which may be missing; its files with the extension "mp4" count
    explicit BundledVideoProvider(const QString &directory);

    [[nodiscard]] const std::vector<LocalVideoCandidate> &candidates() const override { return m_candidates; }

private:
    std::vector<LocalVideoCandidate> m_candidates;
};

}
