#include "Persistence/Repositories/UserVideoThumbnailRenderer.h"

namespace tomcatto {

UserVideoThumbnailRenderer::UserVideoThumbnailRenderer(const StillFrame &stillFrame)
    : m_stillFrame(stillFrame)
    , m_logger(QStringLiteral("UserVideoThumbnailRenderer"))
{
}

VideoLook UserVideoThumbnailRenderer::look(const QString &path, const std::stop_token &stop) const
{
    auto look = m_stillFrame.look(path, request, stop);
    return look ? *std::move(look) : VideoLook{0, std::unexpected(look.error())};
}

QByteArray UserVideoThumbnailRenderer::thumbnail(const VideoLook &look) const
{
    if (!look.picture)
        m_logger.error(QStringLiteral("thumbnail extraction failed: ") + description(look.picture.error()));
    return look.picture.value_or(QByteArray());
}

}
