#pragma once

#include <functional>
#include <memory>
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

    /// Runs `job` later. What was handed over is finished before the queue ends.
    void async(std::function<void()> job) { m_pool.start(std::move(job)); }
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
    QThreadPool m_pool;
};

}
