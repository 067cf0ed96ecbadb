#include "FilmPlayback.h"

#include "FilmPipeline.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <utility>

namespace tomcatto {
namespace {

/// The threads of all films that play or end.
QList<QPointer<QThread>> &threads()
{
    static QList<QPointer<QThread>> all;
    return all;
}

/// Long enough for any pipeline that works; one that hangs keeps nobody from quitting.
constexpr std::chrono::seconds quitTime{2};

}

std::shared_ptr<FilmPlayback> FilmPlayback::start(const QUrl &source, const Wish &wish, Listener listener)
{
    const auto film = std::make_shared<FilmPlayback>();
    film->m_listener = std::move(listener);
    film->m_orders.wish = wish;
    QThread *thread = QThread::create([film, source] { film->run(source); });
    thread->setObjectName(QStringLiteral("film"));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    if (threads().isEmpty())
        qAddPostRoutine([] { waitForEnded(quitTime); });
    threads().removeAll(nullptr);
    threads().append(thread);
    thread->start();
    return film;
}

void FilmPlayback::waitForEnded(std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    for (const QPointer<QThread> &thread : std::exchange(threads(), {})) {
        if (thread && thread->wait(deadline))
            delete thread.data();
    }
}

void FilmPlayback::run(const QUrl &source)
{
    FilmPipeline::load();
    if (source.isEmpty())
        return;
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

void FilmPlayback::setWish(const Wish &wish)
{
    const std::lock_guard lock(m_mutex);
    m_orders.wish = wish;
    m_changed.notify_one();
}

FilmFrame FilmPlayback::takeFrame()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_frame, {});
}

void FilmPlayback::end()
{
    const std::lock_guard lock(m_mutex);
    m_listener = {};
    m_orders.isEnded = true;
    m_changed.notify_one();
}

void FilmPlayback::put(FilmFrame frame)
{
    const std::lock_guard lock(m_mutex);
    std::swap(m_frame, frame);
    if (!frame.isValid() && m_listener.frameCame)
        m_listener.frameCame();
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
    const std::lock_guard lock(m_mutex);
    if (m_listener.failed)
        m_listener.failed(reason);
}

void FilmPlayback::missSound()
{
    const std::lock_guard lock(m_mutex);
    if (m_listener.soundMissing)
        m_listener.soundMissing();
}

}
