#include "Platform/FFmpeg/FfmpegClipStudio.h"

#include "Platform/FFmpeg/PreviewEncoder.h"
#include "Platform/FFmpeg/StructuralSimilarity.h"
#include "Platform/FFmpeg/TimeLimit.h"
#include "Platform/FFmpeg/VideoFile.h"

#include <cmath>
#include <limits>
#include <QtCore/QFileInfo>
#include <vector>

namespace tomcatto {

namespace {

constexpr std::chrono::minutes longestLook{10};
// Small enough that noise does not count, large enough that a whisker does.
constexpr int comparedSide = 480;
constexpr int largestSide = std::numeric_limits<int>::max();
constexpr int previewSide = 320;
constexpr int previewRate = 12;
constexpr int longestPreviewFrames = 3 * previewRate;

std::expected<void, StillFrameFailure> open(VideoFile &video, const QString &path)
{
    if (!QFileInfo(path).isFile())
        return std::unexpected(StillFrameFailure::unreadable);
    return video.open(path);
}

/// The frames at both ends of a clip, as many as there are.
struct Ends
{
    std::vector<FramePointer> first;
    std::vector<FramePointer> last;
    double end = 0;
};

std::expected<Ends, StillFrameFailure> endsOf(VideoFile &video)
{
    constexpr std::size_t count = 2;
    Ends ends;
    while (true) {
        auto frame = video.nextFrame();
        if (!frame && (frame.error() != StillFrameFailure::noFrame || ends.last.empty()))
            return std::unexpected(frame.error());
        if (!frame)
            return ends;
        ends.end = video.endOf(**frame);
        if (ends.first.size() < count)
            ends.first.emplace_back(av_frame_clone(frame->get()));
        if (ends.last.size() == count)
            ends.last.erase(ends.last.begin());
        ends.last.push_back(std::move(*frame));
    }
}

std::optional<double> similarity(const VideoFile &video, const FramePointer &first, const FramePointer &second)
{
    const auto one = first ? video.upright(*first, comparedSide) : std::nullopt;
    const auto other = second ? video.upright(*second, comparedSide) : std::nullopt;
    return one && other ? std::optional(structuralSimilarity(*one, *other)) : std::nullopt;
}

std::expected<ClipFacts, StillFrameFailure> examined(const QString &path, const TimeLimit &limit)
{
    VideoFile video(limit);
    if (const auto opened = open(video, path); !opened)
        return std::unexpected(opened.error());
    const auto ends = endsOf(video);
    if (!ends)
        return std::unexpected(ends.error());
    const auto shown = video.upright(*ends->last.back(), largestSide);
    const auto seam = similarity(video, ends->last.back(), ends->first.front());
    const auto begin = similarity(video, ends->first.front(), ends->first.back());
    const auto end = similarity(video, ends->last.front(), ends->last.back());
    if (!shown || !seam || !begin || !end)
        return std::unexpected(StillFrameFailure::noPicture);
    const double told = video.durationSeconds();
    return ClipFacts{told > 0 ? told : ends->end,
                     shown->width(),
                     shown->height(),
                     static_cast<int>(std::lround(video.framesPerSecond())),
                     video.codecName(),
                     *seam,
                     qMin(*begin, *end)};
}

/// Adds the pictures of the first seconds to the encoder, which is opened with the first one.
std::expected<ClipPreview, StillFrameFailure> encodedStart(VideoFile &video, PreviewEncoder &encoder)
{
    ClipPreview preview{{}, 0, previewRate, 0};
    int count = 0;
    while (count < longestPreviewFrames) {
        const auto frame = video.nextFrame();
        if (!frame && (frame.error() != StillFrameFailure::noFrame || count == 0))
            return std::unexpected(frame.error());
        if (!frame)
            break;
        const auto picture = video.upright(**frame, previewSide);
        if (!picture)
            return std::unexpected(StillFrameFailure::noPicture);
        // Its format wants even sides.
        const QSize size(qMax(2, picture->width() & ~1), qMax(2, picture->height() & ~1));
        if (count == 0 && !encoder.open(size, previewRate))
            return std::unexpected(StillFrameFailure::unavailable);
        if (count == 0)
            preview.width = size.width();
        for (const double end = video.endOf(**frame); count < longestPreviewFrames && count < end * previewRate;
             ++count) {
            if (!encoder.add(*picture))
                return std::unexpected(StillFrameFailure::unavailable);
        }
    }
    preview.durationSeconds = (count + previewRate - 1) / previewRate;
    return preview;
}

std::expected<ClipPreview, StillFrameFailure> previewOf(const QString &path, const TimeLimit &limit)
{
    VideoFile video(limit);
    if (const auto opened = open(video, path); !opened)
        return std::unexpected(opened.error());
    PreviewEncoder encoder;
    auto preview = encodedStart(video, encoder);
    if (!preview)
        return preview;
    auto bytes = encoder.finish();
    if (!bytes)
        return std::unexpected(StillFrameFailure::unavailable);
    preview->mp4 = *std::move(bytes);
    return preview;
}

}

std::expected<ClipFacts, StillFrameFailure> FfmpegClipStudio::examine(const QString &path) const
{
    return withinTimeLimit<ClipFacts>(longestLook, {},
                                      [path](const TimeLimit &limit) { return examined(path, limit); });
}

std::expected<ClipPreview, StillFrameFailure> FfmpegClipStudio::makePreview(const QString &path) const
{
    return withinTimeLimit<ClipPreview>(longestLook, {},
                                        [path](const TimeLimit &limit) { return previewOf(path, limit); });
}

}
