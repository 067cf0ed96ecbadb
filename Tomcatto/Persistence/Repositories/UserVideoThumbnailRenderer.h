#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/StillFrame.h"

namespace tomcatto {

/// Makes the small picture that stands for a video. Any thread but the main one.
class UserVideoThumbnailRenderer final
{
public:
    /// The picture shows the moment half a second from the start and fits into 480 × 480 pixels.
    static constexpr StillFrameRequest request{0.5, 480};

    /// @param stillFrame outlives the renderer
    explicit UserVideoThumbnailRenderer(const StillFrame &stillFrame);

    /// Looks into a file, which takes milliseconds as a rule, a few seconds at most. A failure is the picture's.
    [[nodiscard]] VideoLook look(const QString &path, const std::stop_token &stop) const;
    /// The picture that a look gave, as a JPEG. A failure is logged and gives an empty one.
    [[nodiscard]] QByteArray thumbnail(const VideoLook &look) const;

private:
    const StillFrame &m_stillFrame;
    Logger m_logger;
};

}
