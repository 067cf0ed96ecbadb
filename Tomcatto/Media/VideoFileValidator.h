#pragma once

#include "Platform/Ports/StillFrame.h"

namespace tomcatto {

/// Why a file is not taken as a video.
enum class VideoFileError {
    notFound,
    isDirectory,
    /// A pipe, a socket or a device.
    notAFile,
    unreadable,
    empty,
    noContainer,
    noPicture,
    timedOut,
};

/// One sentence for people, with the path.
[[nodiscard]] QString description(VideoFileError error, const QString &path);

/// Tells whether a file is a video, before it is added. Any thread but the main one: it takes milliseconds as a rule,
/// with a broken file or a slow disk a few seconds at most.
class VideoFileValidator final
{
public:
    /// @param stillFrame outlives the validator
    explicit VideoFileValidator(const StillFrame &stillFrame)
        : m_stillFrame(stillFrame)
    {
    }

    /// What a look into the video gave. Where this installation cannot read videos, a file that begins like one will
    /// do.
    [[nodiscard]] std::expected<VideoLook, VideoFileError> validate(const QString &path,
                                                                    const std::stop_token &stop) const;

    /// The same in two steps. The first bytes of a file, or what is wrong with it before anything reads into it; waits
    /// for as long as its disk does.
    [[nodiscard]] static std::expected<QByteArray, VideoFileError> firstSight(const QString &path);
    /// @param start the file's first bytes
    [[nodiscard]] std::expected<VideoLook, VideoFileError> validate(const QString &path, const QByteArray &start,
                                                                    const std::stop_token &stop) const;

private:
    const StillFrame &m_stillFrame;
};

}
