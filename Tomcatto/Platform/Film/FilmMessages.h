#pragma once

#include <array>
#include <QtCore/QtGlobal>

namespace tomcatto {

/// What is wanted of a film; it follows changes at once.
struct FilmWish
{
    bool isMuted = false;
    bool isStill = false;
    bool operator==(const FilmWish &) const = default;
};

/// What the application tells the player. For `begin` the film's address follows, `textSize` bytes of it.
struct FilmOrder
{
    enum class Kind : qint32 {
        begin,
        follow,
        /// The application needs `frame` no more.
        release,
        end,
    };

    Kind kind = Kind::begin;
    qint32 film = 0;
    qint64 frame = 0;
    qint64 textSize = 0;
    FilmWish wish{};
};

/// What the player tells the application. For `failed` the reason follows, `textSize` bytes of it.
struct FilmNews
{
    enum class Kind : qint32 {
        frame,
        failed,
        /// There is nothing to hear the film with; only the picture plays.
        soundMissing,
    };

    Kind kind = Kind::frame;
    qint32 film = 0;
    qint64 frame = 0;
    qint64 textSize = 0;
    // As in `FilmFrame`.
    qint32 width = 0;
    qint32 height = 0;
    qint32 format = 0;
    qint32 angle = 0;
    /// Where in the memory that both have; below 0 where there is no such plane.
    std::array<qint64, 4> planes{-1, -1, -1, -1};
    std::array<qint32, 4> strides{};
    bool isStandard = false;
    bool isFullRange = false;
    bool isMirrored = false;
};

}
