#pragma once

#include "Platform/FFmpeg/FfmpegPointers.h"
#include "Platform/Ports/StillFrame.h"

#include <optional>
#include <QtGui/QImage>
#include <QtGui/QTransform>

namespace tomcatto {

class TimeLimit;

/// One video file, open for reading. One thread at a time.
class VideoFile final
{
public:
    /// @param limit outlives the file
    explicit VideoFile(const TimeLimit &limit);

    /// Opens the file and finds its picture. Before the rest is asked.
    [[nodiscard]] std::expected<void, StillFrameFailure> open(const QString &path);

    /// Length in seconds; 0 where the file does not tell.
    [[nodiscard]] double durationSeconds() const;
    /// The short name of the picture's format.
    [[nodiscard]] QString codecName() const;
    /// 0 where the file does not tell.
    [[nodiscard]] double framesPerSecond() const;
    /// The next picture in the order they are shown; `noFrame` after the last one.
    [[nodiscard]] std::expected<FramePointer, StillFrameFailure> nextFrame();
    /// When a picture of the file is first shown, and until when, in seconds from the start of the video.
    [[nodiscard]] double startOf(const AVFrame &frame) const;
    [[nodiscard]] double endOf(const AVFrame &frame) const;
    /// The picture that is shown at that many seconds from the start. Once: it reads from the start of the file.
    [[nodiscard]] std::expected<FramePointer, StillFrameFailure> frameAt(double seconds);
    /// A picture of the file as it is shown, made small enough.
    /// @param maximumSide the larger of width and height in pixels, at most; at least 2
    [[nodiscard]] std::optional<QImage> upright(AVFrame &frame, int maximumSide) const;

private:
    [[nodiscard]] std::expected<void, StillFrameFailure> openContainer(const QString &path);
    [[nodiscard]] std::expected<void, StillFrameFailure> openDecoder();
    [[nodiscard]] bool sendNextPacket();
    [[nodiscard]] QTransform orientation() const;
    [[nodiscard]] double pixelAspect(AVFrame &frame) const;
    [[nodiscard]] StillFrameFailure failure(StillFrameFailure otherwise) const;

    const TimeLimit &m_limit;
    FormatPointer m_format;
    CodecPointer m_decoder;
    AVStream *m_stream = nullptr;
    bool m_isDrained = false;
};

}
