#pragma once

#include <functional>
#include <QtCore/QUrl>

namespace tomcatto {

/// What one window plays.
struct BreakVideo
{
    /// Empty where there is none.
    QUrl url;
    /// A still picture of it; empty where there is none at hand.
    QUrl poster;
};

/// Where windows get their videos from. Every function may be empty.
struct BreakVideoSource
{
    /// Gives the next video, once for each window; at once or, where a disk has to be asked, later.
    std::function<void(std::function<void(const BreakVideo &)>)> next;
    /// Nothing plays any more, so the files may be let go.
    std::function<void()> finished = {};
    /// A video plays without its sound, as there is nothing that makes any.
    std::function<void()> soundMissing = {};
};

/// The picture "posters/NAME.jpg" beside a video file that came with the application; an empty address where there is
/// none.
[[nodiscard]] QUrl posterBeside(const QUrl &video);

}
