#include "Platform/Film/FilmPlayback.h"

#include "Platform/Film/FilmPipeline.h"

#include <thread>
#include <utility>

namespace tomcatto {
namespace {

/// How many frames the application may have: the one that shows, the one that it is compared with, and one on its way
/// to each of them.
constexpr int mostGiven = 4;

}

std::shared_ptr<FilmPlayback> FilmPlayback::start(const std::string &source, int number, const FilmWish &wish,
                                                  FilmDesk &desk)
{
    const std::shared_ptr<FilmPlayback> film(new FilmPlayback(number, wish, desk));
    std::thread([film, source] { film->run(source); }).detach();
    return film;
}

FilmPlayback::FilmPlayback(int number, const FilmWish &wish, FilmDesk &desk)
    : m_number(number)
    , m_desk(desk)
    , m_orders{.wish = wish}
{
}

void FilmPlayback::run(const std::string &source)
{
    FilmPipeline pipeline(*this, source);
    std::optional<Orders> followed;
    for (Orders orders = nextOrders(followed); !orders.isEnded; orders = nextOrders(followed)) {
        if (orders.isAtEnd)
            pipeline.rewind();
        pipeline.follow(orders.wish, orders.isReady);
        followed = orders;
    }
}

FilmPlayback::Orders FilmPlayback::nextOrders(const std::optional<Orders> &followed)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] {
        return m_orders.isEnded || m_orders.isAtEnd || !followed || m_orders.wish != followed->wish ||
               m_orders.isReady != followed->isReady;
    });
    Orders orders = m_orders;
    m_orders.isAtEnd = false;
    return orders;
}

void FilmPlayback::setWish(const FilmWish &wish)
{
    const std::lock_guard lock(m_mutex);
    m_orders.wish = wish;
    m_changed.notify_one();
}

void FilmPlayback::takeBack()
{
    const std::lock_guard lock(m_mutex);
    --m_given;
    if (m_waiting.isValid())
        give(std::exchange(m_waiting, {}));
}

void FilmPlayback::end()
{
    const std::lock_guard lock(m_mutex);
    m_orders.isEnded = true;
    m_changed.notify_one();
}

void FilmPlayback::put(FilmFrame frame)
{
    const std::lock_guard lock(m_mutex);
    if (m_given == mostGiven)
        std::swap(m_waiting, frame);
    else
        give(frame);
}

void FilmPlayback::give(const FilmFrame &frame)
{
    ++m_given;
    if (!m_desk.sendFrame(m_number, frame))
        fail(QStringLiteral("there is no memory for its frames"));
}

void FilmPlayback::noteReady()
{
    const std::lock_guard lock(m_mutex);
    m_orders.isReady = true;
    m_changed.notify_one();
}

void FilmPlayback::noteEnd()
{
    const std::lock_guard lock(m_mutex);
    m_orders.isAtEnd = true;
    m_changed.notify_one();
}

void FilmPlayback::fail(const QString &reason)
{
    m_desk.sendFailure(m_number, reason.toStdString());
}

void FilmPlayback::missSound()
{
    m_desk.sendSoundMissing(m_number);
}

}
