#include "Platform/FFmpeg/FfmpegStillFrame.h"

#include "Platform/FFmpeg/TimeLimit.h"
#include "Platform/FFmpeg/UprightPicture.h"
#include "Platform/FFmpeg/VideoFile.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

std::expected<QByteArray, StillFrameFailure> pictureOf(VideoFile &video, StillFrameRequest request)
{
    const auto frame = video.frameAt(request.atSeconds);
    if (!frame)
        return std::unexpected(frame.error());
    const auto picture = video.upright(**frame, request.maximumSide);
    auto data = picture ? jpegPicture(*picture) : std::nullopt;
    if (!data)
        return std::unexpected(StillFrameFailure::noFrame);
    return *std::move(data);
}

std::expected<VideoLook, StillFrameFailure> lookInto(const QString &path, StillFrameRequest request,
                                                     const TimeLimit &limit)
{
    // A pipe would keep its reader waiting for as long as nobody writes.
    if (!QFileInfo(path).isFile())
        return std::unexpected(StillFrameFailure::unreadable);
    VideoFile video(limit);
    if (const auto opened = video.open(path); !opened)
        return std::unexpected(opened.error());
    return VideoLook{video.durationSeconds(), pictureOf(video, request)};
}

}

FfmpegStillFrame::FfmpegStillFrame(std::chrono::milliseconds limit)
    : m_limit(limit)
{
    av_log_set_level(AV_LOG_QUIET);
}

std::expected<VideoLook, StillFrameFailure> FfmpegStillFrame::look(const QString &path, StillFrameRequest request,
                                                                   std::stop_token stop) const
{
    return withinTimeLimit<VideoLook>(
        m_limit, stop, [path, request](const TimeLimit &limit) { return lookInto(path, request, limit); });
}

}
