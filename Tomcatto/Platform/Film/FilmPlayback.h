#pragma once

#include "Platform/Film/FilmDesk.h"

#include <condition_variable>
#include <QtCore/QString>

namespace tomcatto {

/// One film that plays without an end on threads of its own, so that none waits for another one's disk, decoder or
/// sound. Any thread.
class FilmPlayback final : public std::enable_shared_from_this<FilmPlayback>
{
public:
    /// @param number what the desk knows it by. @param desk outlives this
    static std::shared_ptr<FilmPlayback> start(const std::string &source, int number, const FilmWish &wish,
                                               FilmDesk &desk);

    void setWish(const FilmWish &wish);
    /// One of the frames that the application had is not needed any more.
    void takeBack();
    /// Lets the film go. Returns at once; the film ends on its own thread.
    void end();

private:
    friend class FilmPipeline;
    /// What the film's thread has to do next.
    struct Orders
    {
        FilmWish wish;
        /// The first frame is there.
        bool isReady = false;
        bool isEnded = false;
        bool isAtEnd = false;
    };

    FilmPlayback(int number, const FilmWish &wish, FilmDesk &desk);

    void run(const std::string &source);
    [[nodiscard]] Orders nextOrders(const std::optional<Orders> &followed);
    void put(FilmFrame frame);
    /// With the lock held, so that frames stay in their order.
    void give(const FilmFrame &frame);
    void noteReady();
    void noteEnd();
    void fail(const QString &reason);
    void missSound();

    const int m_number;
    FilmDesk &m_desk;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Orders m_orders;
    /// The newest frame, while the application has as many as it may.
    FilmFrame m_waiting;
    int m_given = 0;
};

}
