#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <QtCore/QThreadPool>
#include <semaphore>

namespace tomcatto {

/// Runs jobs one after the other, in the order they were handed over, on a thread of its own. The thread goes away a
/// second after the last job, so an idle queue costs nothing. Jobs do not throw. Any thread.
class SerialQueue final
{
public:
    SerialQueue()
    {
        constexpr int idleThreadMilliseconds = 1000;
        m_pool.setMaxThreadCount(1);
        m_pool.setExpiryTimeout(idleThreadMilliseconds);
    }
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;
    ~SerialQueue()
    {
        m_pool.waitForDone();
        // After the last job also for the thread sanitizer, which does not see the pool's own locks.
        const std::lock_guard turn(m_turn);
    }

    /// Runs `job` later. What was handed over is finished before the queue ends.
    void async(std::function<void()> job)
    {
        {
            const std::lock_guard lock(m_handedOver);
            m_jobs.push_back(std::move(job));
        }
        m_pool.start([this] { runNext(); });
    }
    /// Runs `job` after all jobs handed over before and returns when it is done. Not from within a job.
    void sync(const std::function<void()> &job)
    {
        // The standard one: the thread sanitizer does not see how Qt's let go of each other.
        const auto done = std::make_shared<std::binary_semaphore>(0);
        async([&job, done] {
            job();
            done->release();
        });
        done->acquire();
    }
    /// Returns when every job handed over so far is done. Not from within a job.
    void drain()
    {
        sync([] {});
    }

private:
    void runNext()
    {
        const std::lock_guard turn(m_turn);
        const auto job = take();
        job();
    }
    [[nodiscard]] std::function<void()> take()
    {
        const std::lock_guard lock(m_handedOver);
        auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        return job;
    }

    // Held while a job runs, and until it is gone.
    std::mutex m_turn;
    std::mutex m_handedOver;
    std::deque<std::function<void()>> m_jobs;
    QThreadPool m_pool;
};

}
