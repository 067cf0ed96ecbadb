#pragma once

#include <functional>
#include <QtCore/QUrl>

namespace tomcatto {

/// Where windows get their videos from. Every function may be empty.
struct BreakVideoSource
{
    /// The next file to play, once for each window; an empty address where there is none.
    std::function<QUrl()> next;
    /// A still picture of a video; an empty address where there is none at hand. Must not take long.
    std::function<QUrl(const QUrl &video)> poster;
    /// Nothing plays any more, so the files may be let go.
    std::function<void()> finished;
    /// A video plays without its sound, as there is nothing that makes any.
    std::function<void()> soundMissing = {};
};

/// The picture "posters/NAME.jpg" beside a video file; an empty address where there is none.
[[nodiscard]] QUrl posterBeside(const QUrl &video);

}
