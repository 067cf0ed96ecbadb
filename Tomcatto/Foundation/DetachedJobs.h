#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QString>
#include <thread>

namespace tomcatto {

/// Runs jobs that a disk may hold up, on threads of their own. The end waits a moment for them and leaves behind those
/// that hang, so a job owns all that it uses. One thread.
class DetachedJobs final
{
public:
    /// @param patience how long the end waits for all jobs together
    explicit DetachedJobs(std::chrono::milliseconds patience = std::chrono::seconds(3))
        : m_patience(patience)
    {
    }
    DetachedJobs(const DetachedJobs &) = delete;
    DetachedJobs &operator=(const DetachedJobs &) = delete;
    ~DetachedJobs()
    {
        std::unique_lock lock(m_shared->mutex);
        const QDeadlineTimer end(m_patience);
        // In steps by the wall clock, which may jump: GCC's thread sanitizer does not know the wait on the steady one.
        while (!m_shared->jobs.empty() && !end.hasExpired())
            m_shared->ended.wait_until(lock, std::chrono::system_clock::now() + step);
    }

    /// Starts a job, which does not throw; after those of the same file that were started before.
    void start(const QString &file, std::function<void()> job)
    {
        const std::lock_guard lock(m_shared->mutex);
        std::deque<std::function<void()>> &jobs = m_shared->jobs[file];
        jobs.push_back(std::move(job));
        if (jobs.size() == 1)
            std::thread([shared = m_shared, file] { work(*shared, file); }).detach();
    }

private:
    static constexpr std::chrono::milliseconds step{50};

    struct Shared
    {
        std::mutex mutex;
        std::condition_variable ended;
        /// Of each file those that run or wait.
        std::map<QString, std::deque<std::function<void()>>> jobs;
    };

    static void work(Shared &shared, const QString &file)
    {
        std::unique_lock lock(shared.mutex);
        const auto jobs = shared.jobs.find(file);
        while (!jobs->second.empty()) {
            std::function<void()> job = std::exchange(jobs->second.front(), nullptr);
            lock.unlock();
            job();
            job = nullptr;
            lock.lock();
            jobs->second.pop_front();
        }
        shared.jobs.erase(jobs);
        shared.ended.notify_all();
    }

    const std::chrono::milliseconds m_patience;
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

}
