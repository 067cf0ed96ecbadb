#pragma once

#include <functional>
#include <utility>

namespace tomcatto {

/// Holds a subscription or a timer for as long as it lives; cancels it when it is destroyed. Move-only. Used on the
/// thread that the subscription delivers on.
class Cancellable final
{
public:
    Cancellable() = default;
    explicit Cancellable(std::function<void()> cancel)
        : m_cancel(std::move(cancel))
    {
    }
    Cancellable(Cancellable &&other) noexcept
        : m_cancel(std::exchange(other.m_cancel, nullptr))
    {
    }
    Cancellable &operator=(Cancellable &&other) noexcept
    {
        if (this != &other) {
            cancel();
            m_cancel = std::exchange(other.m_cancel, nullptr);
        }
        return *this;
    }
    Cancellable(const Cancellable &) = delete;
    Cancellable &operator=(const Cancellable &) = delete;
    ~Cancellable() { cancel(); }

    /// Ends the subscription now; a second call does nothing.
    void cancel()
    {
        if (const auto action = std::exchange(m_cancel, nullptr))
            action();
    }
    /// Whether there is still something to cancel. A timer that fires once stays active until it is cancelled.
    [[nodiscard]] bool isActive() const noexcept { return static_cast<bool>(m_cancel); }

private:
    std::function<void()> m_cancel;
};

}
