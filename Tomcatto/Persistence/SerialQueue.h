#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <QtCore/QtGlobal>
#include <thread>

namespace tomcatto {

/// Runs jobs one after the other, in the order they were handed over, on a thread of its own. The thread goes away a
/// second after the last job, so an idle queue costs nothing. Jobs do not throw. Any thread.
class SerialQueue final
{
public:
    SerialQueue() = default;
    /// Finishes what was handed over.
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    /// Runs `job` later; waits first where too many wait already.
    void async(std::function<void()> job);
    /// Runs `job` after all jobs handed over before and returns when it is done; from within a job it runs at once.
    void sync(const std::function<void()> &job);
    /// Returns when every job handed over so far is done. From within a job it returns at once.
    void drain();

private:
    void run();
    [[nodiscard]] quint64 append(std::function<void()> job);
    void waitFor(quint64 ticket);
    [[nodiscard]] bool isCurrent();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    std::thread m_thread;
    bool m_isRunning = false;
    bool m_isEnding = false;
    quint64 m_handedOver = 0;
    quint64 m_finished = 0;
};

}
