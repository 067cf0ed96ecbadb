#pragma once

#include "FilmFrame.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tomcatto {

/// One film that plays without an end on threads of its own, so that nobody waits for a disk, a decoder or a sound
/// server, neither when it begins nor when it ends. Main thread only, but for what is said of the listener.
class FilmPlayback final
{
public:
    /// Called on threads of the player, and never again once `end` has returned.
    struct Listener
    {
        /// There is a frame, and the one before was taken.
        std::function<void()> frameCame;
        std::function<void(const QString &reason)> failed;
        /// There is nothing to hear the film with; only the picture plays.
        std::function<void()> soundMissing;
    };
    /// What is wanted of a film; it follows changes at once.
    struct Wish
    {
        bool isMuted = false;
        bool isStill = false;
        bool operator==(const Wish &) const = default;
    };

    /// Starts a film. @param source nothing: only what any film needs is loaded
    static std::shared_ptr<FilmPlayback> start(const QUrl &source, const Wish &wish, Listener listener);
    /// Waits until all films that were ended are gone, for `limit` at most. The application calls it when it ends.
    static void waitForEnded(std::chrono::milliseconds limit);

    void setWish(const Wish &wish);
    /// The newest frame, if there is one that was not taken yet.
    [[nodiscard]] FilmFrame takeFrame();
    /// Lets the film go. Returns at once; the film ends on its own thread.
    void end();

private:
    friend class FilmPipeline;
    /// What the film's thread has to do next.
    struct Orders
    {
        Wish wish;
        /// The first frame is there.
        bool isReady = false;
        bool isEnded = false;
        bool isAtEnd = false;
    };

    void run(const QUrl &source);
    [[nodiscard]] Orders nextOrders(const std::optional<Orders> &followed);
    void put(FilmFrame frame);
    void noteReady();
    void noteEnd();
    void fail(const QString &reason);
    void missSound();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Listener m_listener;
    Orders m_orders;
    FilmFrame m_frame;
};

}
