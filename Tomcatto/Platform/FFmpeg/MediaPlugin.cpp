#include "Platform/FFmpeg/MediaPlugin.h"

namespace tomcatto {

std::expected<double, StillFrameFailure> MediaPlugin::durationSeconds(const QString &path, std::stop_token stop) const
{
    return m_frames.durationSeconds(path, std::move(stop));
}

std::expected<QByteArray, StillFrameFailure> MediaPlugin::jpeg(const QString &path, StillFrameRequest request,
                                                               std::stop_token stop) const
{
    return m_frames.jpeg(path, request, std::move(stop));
}

}
