#include "Persistence/Repositories/UserVideoThumbnailRenderer.h"

namespace tomcatto {

UserVideoThumbnailRenderer::UserVideoThumbnailRenderer(const StillFrame &stillFrame)
    : m_stillFrame(stillFrame)
    , m_logger(QStringLiteral("UserVideoThumbnailRenderer"))
{
}

std::optional<QByteArray> UserVideoThumbnailRenderer::thumbnail(const QUrl &fileUrl, const std::stop_token &stop) const
{
    auto picture = m_stillFrame.jpeg(fileUrl.toLocalFile(), {atSeconds, maximumSide}, stop);
    if (picture)
        return *std::move(picture);
    m_logger.error(QStringLiteral("thumbnail extraction failed: ") + description(picture.error()));
    return std::nullopt;
}

}
