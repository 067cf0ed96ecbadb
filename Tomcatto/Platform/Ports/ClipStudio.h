#pragma once

#include "Platform/Ports/StillFrame.h"

namespace tomcatto {

/// What a look at a whole clip tells.
struct ClipFacts
{
    double durationSeconds = 0;
    /// Pixels, as it is shown.
    int width = 0;
    int height = 0;
    /// Rounded; 0 where the file does not tell.
    int framesPerSecond = 0;
    /// The short name of the picture's format, such as "h264".
    QString codec;
    /// How much the last frame is like the first: the structural similarity of their brightness, from -1 to 1.
    double seamSimilarity = 0;
    /// The same for neighbours at both ends of the clip, the lesser one: what a seam that nobody sees has.
    double neighbourSimilarity = 0;

    bool operator==(const ClipFacts &) const = default;
};

/// A short, small clip without sound, as the bytes of a file.
struct ClipPreview
{
    QByteArray mp4;
    /// Pixels.
    int width = 0;
    int framesPerSecond = 0;
    /// Rounded up.
    int durationSeconds = 0;

    bool operator==(const ClipPreview &) const = default;
};

/// Looks at whole clips and makes previews of them: the same for the same file. Any thread but the main one of a
/// program that has something else to do: it takes seconds, for a long clip minutes.
class ClipStudio
{
public:
    virtual ~ClipStudio() = default;

    [[nodiscard]] virtual std::expected<ClipFacts, StillFrameFailure> examine(const QString &path) const = 0;
    [[nodiscard]] virtual std::expected<ClipPreview, StillFrameFailure> makePreview(const QString &path) const = 0;
};

}

Q_DECLARE_INTERFACE(tomcatto::ClipStudio, "studio.quillbay.Tomcatto.ClipStudio/1")
