#include "Platform/FFmpeg/FfmpegStillFrame.h"

#include "Platform/FFmpeg/JpegPicture.h"
#include "Platform/FFmpeg/TimeLimit.h"
#include "Platform/FFmpeg/VideoFile.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

// A pipe would keep its reader waiting for as long as nobody writes.
template<typename T>
std::expected<T, StillFrameFailure>
withVideo(const QString &path, const TimeLimit &limit,
          const std::function<std::expected<T, StillFrameFailure>(VideoFile &)> &use)
{
    if (!QFileInfo(path).isFile())
        return std::unexpected(StillFrameFailure::unreadable);
    VideoFile video(limit);
    if (const auto opened = video.open(path); !opened)
        return std::unexpected(opened.error());
    return use(video);
}

}

FfmpegStillFrame::FfmpegStillFrame(std::chrono::milliseconds limit)
    : m_limit(limit)
{
    av_log_set_level(AV_LOG_QUIET);
}

std::expected<double, StillFrameFailure> FfmpegStillFrame::durationSeconds(const QString &path,
                                                                           std::stop_token stop) const
{
    return withinTimeLimit<double>(m_limit, stop, [path](const TimeLimit &limit) {
        return withVideo<double>(path, limit, [](VideoFile &video) { return video.durationSeconds(); });
    });
}

std::expected<QByteArray, StillFrameFailure> FfmpegStillFrame::jpeg(const QString &path, StillFrameRequest request,
                                                                    std::stop_token stop) const
{
    return withinTimeLimit<QByteArray>(m_limit, stop, [path, request](const TimeLimit &limit) {
        return withVideo<QByteArray>(
            path, limit, [request](VideoFile &video) -> std::expected<QByteArray, StillFrameFailure> {
                const auto frame = video.frameAt(request.atSeconds);
                if (!frame)
                    return std::unexpected(frame.error());
                auto data = jpegPicture(**frame, video.orientation(), video.pixelAspect(**frame), request.maximumSide);
                if (!data)
                    return std::unexpected(StillFrameFailure::noFrame);
                return *std::move(data);
            });
    });
}

}
