#pragma once

#include "Platform/FFmpeg/FfmpegPointers.h"
#include "Platform/Ports/StillFrame.h"

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
    /// The picture that is shown at that many seconds from the start. Once: it reads from the start of the file.
    [[nodiscard]] std::expected<FramePointer, StillFrameFailure> frameAt(double seconds);
    /// How the picture is turned for display, to the nearest right angle.
    [[nodiscard]] QTransform orientation() const;
    /// Width of a pixel over its height; 1 for most videos.
    [[nodiscard]] double pixelAspect(AVFrame &frame) const;

private:
    [[nodiscard]] std::expected<void, StillFrameFailure> openContainer(const QString &path);
    [[nodiscard]] std::expected<void, StillFrameFailure> openDecoder();
    [[nodiscard]] bool sendNextPacket();
    [[nodiscard]] double secondsOf(qint64 timestamp) const;
    [[nodiscard]] StillFrameFailure failure(StillFrameFailure otherwise) const;

    const TimeLimit &m_limit;
    FormatPointer m_format;
    CodecPointer m_decoder;
    AVStream *m_stream = nullptr;
    bool m_isDrained = false;
};

}
