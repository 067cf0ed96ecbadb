#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/StillFrame.h"

#include <optional>
#include <QtCore/QUrl>

namespace tomcatto {

/// Makes the small picture that stands for a video. Any thread but the main one; it takes milliseconds as a rule, a few
/// seconds at most.
class UserVideoThumbnailRenderer final
{
public:
    /// The moment that the picture shows, in seconds.
    static constexpr double atSeconds = 0.5;
    /// The larger of its width and height, in pixels, at most.
    static constexpr int maximumSide = 480;

    /// @param stillFrame outlives the renderer
    explicit UserVideoThumbnailRenderer(const StillFrame &stillFrame);

    /// The picture as a JPEG. A failure is logged and gives nothing.
    [[nodiscard]] std::optional<QByteArray> thumbnail(const QUrl &fileUrl, const std::stop_token &stop) const;

private:
    const StillFrame &m_stillFrame;
    Logger m_logger;
};

}
