#include "FilmPlayer.h"

namespace tomcatto {

FilmPlayer::FilmPlayer(QObject *parent)
    : QObject(parent)
{
}

FilmPlayer::~FilmPlayer() = default;

void FilmPlayer::componentComplete()
{
    m_film = std::make_unique<RunningFilm>(m_source, m_wish);
    connect(m_film.get(), &RunningFilm::frameCame, this, &FilmPlayer::takeFrame);
    connect(m_film.get(), &RunningFilm::failed, this, &FilmPlayer::failed);
    connect(m_film.get(), &RunningFilm::soundMissing, this, &FilmPlayer::soundMissing);
}

void FilmPlayer::setMuted(bool isMuted)
{
    if (std::exchange(m_wish.isMuted, isMuted) != isMuted)
        follow();
}

void FilmPlayer::setStill(bool isStill)
{
    if (std::exchange(m_wish.isStill, isStill) != isStill)
        follow();
}

void FilmPlayer::follow()
{
    if (m_film)
        m_film->setWish(m_wish);
    Q_EMIT wishChanged();
}

void FilmPlayer::takeFrame(const FilmFrame &frame)
{
    const bool isFirst = !hasFrame();
    m_frame = frame;
    Q_EMIT frameChanged();
    if (isFirst)
        Q_EMIT hasFrameChanged();
}

}
