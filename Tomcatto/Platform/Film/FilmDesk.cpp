#include "Platform/Film/FilmDesk.h"

#include "Platform/Film/FilmPlayback.h"

#include <algorithm>
#include <utility>

extern "C" {
#include <libavutil/imgutils.h>
}

namespace tomcatto {

void FilmDesk::obey(const FilmOrder &order, const std::string &text)
{
    switch (order.kind) {
    case FilmOrder::Kind::begin: {
        const std::lock_guard lock(m_mutex);
        m_films.emplace(order.film, FilmPlayback::start(text, order.film, order.wish, *this));
        return;
    }
    case FilmOrder::Kind::follow:
        return m_films.at(order.film)->setWish(order.wish);
    case FilmOrder::Kind::release:
        return release(order.frame);
    case FilmOrder::Kind::end: {
        m_films.at(order.film)->end();
        const std::lock_guard lock(m_mutex);
        m_films.erase(order.film);
    }
    }
}

void FilmDesk::release(qint64 number)
{
    std::unique_lock lock(m_mutex);
    const auto given = m_shown.extract(number);
    lock.unlock();
    if (const auto film = given.empty() ? nullptr : given.mapped().film.lock())
        film->takeBack();
}

bool FilmDesk::isShared(const FilmFrame &frame) const
{
    return std::ranges::all_of(frame.planes,
                               [this](const uint8_t *plane) { return !plane || m_memory.offset(plane).has_value(); });
}

FilmFrame FilmDesk::shared(const FilmFrame &frame)
{
    if (isShared(frame))
        return frame;
    FilmFrame copy = frame;
    const int size = av_image_get_buffer_size(frame.format, frame.size.width(), frame.size.height(), 32);
    std::byte *piece = size > 0 ? m_memory.take(static_cast<std::size_t>(size)) : nullptr;
    if (!piece)
        return {};
    uint8_t *planes[4]{};
    av_image_fill_arrays(planes, copy.strides.data(), reinterpret_cast<uint8_t *>(piece), frame.format,
                         frame.size.width(), frame.size.height(), 32);
    std::array<const uint8_t *, 4> read = frame.planes;
    av_image_copy(planes, copy.strides.data(), read.data(), frame.strides.data(), frame.format, frame.size.width(),
                  frame.size.height());
    std::ranges::copy(planes, copy.planes.begin());
    copy.memory = std::shared_ptr<const void>(piece, [this](const std::byte *ended) { m_memory.giveBack(ended); });
    return copy;
}

bool FilmDesk::sendFrame(int film, const FilmFrame &frame)
{
    const FilmFrame given = shared(frame);
    if (!given.isValid())
        return false;
    FilmNews news{
        .kind = FilmNews::Kind::frame, .film = film, .width = given.size.width(), .height = given.size.height()};
    news.format = given.format;
    news.angle = given.angle;
    for (std::size_t plane = 0; plane < given.planes.size(); ++plane) {
        if (const auto offset = m_memory.offset(given.planes.at(plane)))
            news.planes.at(plane) = static_cast<qint64>(*offset);
    }
    news.strides = given.strides;
    news.isStandard = given.isStandard;
    news.isFullRange = given.isFullRange;
    news.isMirrored = given.isMirrored;
    const std::lock_guard lock(m_mutex);
    const auto playing = m_films.find(film);
    if (playing == m_films.end())
        return true;
    news.frame = ++m_lastFrame;
    m_shown.emplace(news.frame, Shown{playing->second, given});
    send(news);
    return true;
}

void FilmDesk::sendFailure(int film, const std::string &reason)
{
    const std::lock_guard lock(m_mutex);
    send({.kind = FilmNews::Kind::failed, .film = film}, reason);
}

void FilmDesk::sendSoundMissing(int film)
{
    const std::lock_guard lock(m_mutex);
    send({.kind = FilmNews::Kind::soundMissing, .film = film});
}

void FilmDesk::send(FilmNews news, const std::string &text)
{
    news.textSize = static_cast<qint64>(text.size());
    std::fwrite(&news, sizeof(news), 1, m_news);
    std::fwrite(text.data(), 1, text.size(), m_news);
    std::fflush(m_news);
}

}
