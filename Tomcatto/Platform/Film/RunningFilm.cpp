#include "Platform/Film/RunningFilm.h"

namespace tomcatto {

RunningFilm::RunningFilm(const QUrl &source, const FilmWish &wish)
    : m_process(FilmProcess::shared())
{
    if (!source.isEmpty())
        m_number = m_process->begin(*this, source, wish);
}

RunningFilm::~RunningFilm()
{
    if (m_number > 0)
        m_process->send({.kind = FilmOrder::Kind::end, .film = m_number});
}

void RunningFilm::setWish(const FilmWish &wish)
{
    if (m_number > 0)
        m_process->send({.kind = FilmOrder::Kind::follow, .film = m_number, .wish = wish});
}

}
