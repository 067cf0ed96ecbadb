#pragma once

#include "Platform/Ports/StillFrame.h"

#include <chrono>

namespace tomcatto {

/// Still frames by the FFmpeg libraries. Every call works on a thread of its own and returns within its time limit,
/// whatever the file does. Only files are read, nothing that a file refers to. Any thread but the main one.
class FfmpegStillFrame final : public StillFrame
{
public:
    /// @param limit how long one call takes at most
    explicit FfmpegStillFrame(std::chrono::milliseconds limit = std::chrono::seconds{8});

    [[nodiscard]] std::expected<double, StillFrameFailure> durationSeconds(const QString &path,
                                                                           std::stop_token stop) const override;
    [[nodiscard]] std::expected<QByteArray, StillFrameFailure> jpeg(const QString &path, StillFrameRequest request,
                                                                    std::stop_token stop) const override;

private:
    std::chrono::milliseconds m_limit;
};

}
