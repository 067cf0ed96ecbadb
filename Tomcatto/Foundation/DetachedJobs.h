#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace tomcatto {

/// Runs jobs that a disk may hold up, each on a thread of its own. The end waits a moment for them and leaves behind
/// those that hang, so a job owns all that it uses. One thread.
class DetachedJobs final
{
public:
    /// How long the end waits for all jobs together.
    static constexpr std::chrono::seconds patience{3};

    DetachedJobs() = default;
    DetachedJobs(const DetachedJobs &) = delete;
    DetachedJobs &operator=(const DetachedJobs &) = delete;
    ~DetachedJobs()
    {
        std::unique_lock lock(m_shared->mutex);
        // The wall clock will do, a jump only moves the limit; GCC's thread sanitizer does not know the wait on the
        // steady clock.
        m_shared->ended.wait_until(lock, std::chrono::system_clock::now() + patience,
                                   [this] { return m_shared->running == 0; });
    }

    /// Starts a job, which does not throw.
    void start(std::function<void()> job)
    {
        {
            const std::lock_guard lock(m_shared->mutex);
            ++m_shared->running;
        }
        std::thread([shared = m_shared, job = std::move(job)]() mutable {
            job();
            job = nullptr;
            const std::lock_guard lock(shared->mutex);
            --shared->running;
            shared->ended.notify_all();
        }).detach();
    }

private:
    struct Shared
    {
        std::mutex mutex;
        std::condition_variable ended;
        int running = 0;
    };

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

}
