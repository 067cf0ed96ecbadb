#pragma once

#include "Platform/Ports/StillFrame.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <QtCore/QDeadlineTimer>
#include <thread>

namespace tomcatto {

/// What work with a time limit asks now and then. Any thread.
class TimeLimit final
{
public:
    explicit TimeLimit(std::chrono::milliseconds limit)
        : m_deadline(limit)
    {
    }

    /// Whether nobody waits for the work any longer.
    [[nodiscard]] bool isOver() const { return m_isAbandoned || m_deadline.hasExpired(); }
    void abandon() { m_isAbandoned = true; }

private:
    QDeadlineTimer m_deadline;
    std::atomic<bool> m_isAbandoned = false;
};

/// Runs `work` on a thread of its own and waits for it until the limit or `stop`, and a moment longer for what it has
/// by then. Work that is stuck, for example on a disk that does not answer, is left behind; it must own all that it
/// uses.
template<typename T>
[[nodiscard]] std::expected<T, StillFrameFailure>
withinTimeLimit(std::chrono::milliseconds limit, const std::stop_token &stop,
                std::function<std::expected<T, StillFrameFailure>(const TimeLimit &)> work)
{
    constexpr std::chrono::milliseconds moment{200};
    struct Shared
    {
        explicit Shared(std::chrono::milliseconds time)
            : timeLimit(time)
        {
        }

        TimeLimit timeLimit;
        std::mutex mutex;
        std::condition_variable_any changed;
        std::optional<std::expected<T, StillFrameFailure>> result;
    };
    const auto shared = std::make_shared<Shared>(limit);
    std::thread([shared, work = std::move(work)] {
        auto result = work(shared->timeLimit);
        const std::lock_guard lock(shared->mutex);
        shared->result = std::move(result);
        shared->changed.notify_all();
    }).detach();
    std::unique_lock lock(shared->mutex);
    // The wall clock will do, a jump only moves the limit; GCC's thread sanitizer does not know the wait on the steady
    // clock.
    shared->changed.wait_until(lock, stop, std::chrono::system_clock::now() + limit + moment,
                               [&shared] { return shared->result.has_value(); });
    if (!shared->result)
        shared->timeLimit.abandon();
    return std::move(shared->result).value_or(std::unexpected(StillFrameFailure::timedOut));
}

}
