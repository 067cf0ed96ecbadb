#pragma once

#include "Platform/Ports/StillFrame.h"

#include <chrono>

namespace tomcatto {

/// Looks into videos with the FFmpeg libraries. Every look works on a thread of its own and returns within its time
/// limit, whatever the file does. Only files are read, nothing that a file refers to. Any thread but the main one.
class FfmpegStillFrame : public StillFrame
{
public:
    /// @param limit how long one look takes at most
    explicit FfmpegStillFrame(std::chrono::milliseconds limit = std::chrono::seconds{8});

    [[nodiscard]] std::expected<VideoLook, StillFrameFailure> look(const QString &path, StillFrameRequest request,
                                                                   std::stop_token stop) const override;

private:
    std::chrono::milliseconds m_limit;
};

}
