#pragma once

#include <expected>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtPlugin>
#include <stop_token>

namespace tomcatto {

/// Why a video gave nothing.
enum class StillFrameFailure {
    /// This installation cannot read videos.
    unavailable,
    unreadable,
    /// The file is in no format of videos.
    noContainer,
    /// The file holds sound or other tracks only, or a picture that nothing here can decode.
    noPicture,
    /// The video shows nothing at that time.
    noFrame,
    /// It took longer than a sound video takes, or the caller lost interest.
    timedOut,
};

/// Which picture of a video, and how it is stored.
struct StillFrameRequest
{
    /// Seconds from the start of the video.
    double atSeconds = 0;
    /// The larger of width and height, in pixels, at most; pictures are never enlarged.
    int maximumSide = 0;

    bool operator==(const StillFrameRequest &) const = default;
};

/// What a look into a video gave.
struct VideoLook
{
    /// The length in seconds; 0 where the file does not tell.
    double durationSeconds = 0;
    /// One picture, upright, as a JPEG of quality 70 of 100.
    std::expected<QByteArray, StillFrameFailure> picture;

    bool operator==(const VideoLook &) const = default;
};

/// Looks into video files. Any thread but the main one: a look takes milliseconds as a rule and, with a broken file or
/// a slow disk, a few seconds at most.
class StillFrame
{
public:
    virtual ~StillFrame() = default;

    /// Opens a video once for its length and one picture. Without a picture at that time it still has its length.
    [[nodiscard]] virtual std::expected<VideoLook, StillFrameFailure>
    look(const QString &path, StillFrameRequest request, std::stop_token stop) const = 0;
};

/// The failure in words for the log.
[[nodiscard]] inline QString description(StillFrameFailure failure)
{
    switch (failure) {
    case StillFrameFailure::unavailable:
        return QStringLiteral("videos cannot be read on this installation");
    case StillFrameFailure::unreadable:
        return QStringLiteral("the file cannot be read");
    case StillFrameFailure::noContainer:
        return QStringLiteral("the file is in no known video format");
    case StillFrameFailure::noPicture:
        return QStringLiteral("the file has no picture that can be decoded");
    case StillFrameFailure::noFrame:
        return QStringLiteral("the video shows no picture at that time");
    case StillFrameFailure::timedOut:
        return QStringLiteral("reading the file took too long");
    }
    return {};
}

}

Q_DECLARE_INTERFACE(tomcatto::StillFrame, "studio.quillbay.Tomcatto.StillFrame/1")
