#include "Persistence/SerialQueue.h"

#include <chrono>

namespace tomcatto {

namespace {

constexpr std::chrono::seconds idleLifetime{1};
// A caller that is faster than the disk waits at this many jobs, so memory and the end stay bounded.
constexpr std::size_t longestBacklog = 256;

}

SerialQueue::~SerialQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void SerialQueue::async(std::function<void()> job)
{
    if (!isCurrent()) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_jobs.size() < longestBacklog; });
    }
    static_cast<void>(append(std::move(job)));
}

void SerialQueue::sync(const std::function<void()> &job)
{
    if (isCurrent())
        job();
    else
        waitFor(append(job));
}

void SerialQueue::drain()
{
    if (isCurrent())
        return;
    quint64 ticket = 0;
    {
        const std::lock_guard lock(m_mutex);
        ticket = m_handedOver;
    }
    waitFor(ticket);
}

quint64 SerialQueue::append(std::function<void()> job)
{
    const std::lock_guard lock(m_mutex);
    m_jobs.push_back(std::move(job));
    if (!m_isRunning) {
        // The former thread has let go of the mutex for good when it says that it no longer runs.
        if (m_thread.joinable())
            m_thread.join();
        m_thread = std::thread([this] { run(); });
        m_isRunning = true;
    }
    m_changed.notify_all();
    return ++m_handedOver;
}

void SerialQueue::waitFor(quint64 ticket)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this, ticket] { return m_finished >= ticket; });
}

bool SerialQueue::isCurrent()
{
    const std::lock_guard lock(m_mutex);
    return m_isRunning && m_thread.get_id() == std::this_thread::get_id();
}

void SerialQueue::run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        // The wall clock will do, a jump only moves the idle thread's end; GCC's thread sanitizer does not know the
        // wait on the steady clock.
        const auto end = std::chrono::system_clock::now() + idleLifetime;
        m_changed.wait_until(lock, end, [this] { return !m_jobs.empty() || m_isEnding; });
        if (m_jobs.empty()) {
            m_isRunning = false;
            return;
        }
        std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        job();
        // What the job held is let go before anyone learns that it is done.
        job = nullptr;
        lock.lock();
        ++m_finished;
        m_changed.notify_all();
    }
}

}
