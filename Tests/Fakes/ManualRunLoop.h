#pragma once

#include "Platform/Ports/MainRunLoop.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <QtCore/QObject>
#include <vector>

namespace tomcatto {

/// A run loop whose time a test moves by hand. Timers fire in the order of their times.
class ManualRunLoop final : public MainRunLoop
{
public:
    [[nodiscard]] Cancellable every(std::chrono::milliseconds interval, std::function<void()> action) override
    {
        return add(interval, interval, std::move(action));
    }
    [[nodiscard]] Cancellable after(std::chrono::milliseconds delay, std::function<void()> action) override
    {
        return add(delay, std::chrono::milliseconds{0}, std::move(action));
    }
    void async(QObject &context, std::function<void()> action) override
    {
        m_queue.emplace_back(&context, std::move(action));
        QObject::connect(&context, &QObject::destroyed, &m_guard, [this](const QObject *gone) {
            // What an action holds may be a context itself.
            const auto from =
                std::ranges::stable_partition(m_queue, [gone](const auto &entry) { return entry.first != gone; });
            const std::vector dropped(std::move_iterator(from.begin()), std::move_iterator(from.end()));
            m_queue.erase(from.begin(), from.end());
        });
    }

    /// Runs what was handed to `async`, and what that hands over, until nothing is left.
    void drain()
    {
        while (!m_queue.empty()) {
            const auto action = std::move(m_queue.front().second);
            m_queue.pop_front();
            action();
        }
    }
    /// Moves the loop's time on, calling `beforeFire` with each step so that clocks can follow.
    template<typename Step>
    void advance(std::chrono::milliseconds span, Step beforeFire)
    {
        const auto end = m_now + span;
        drain();
        for (auto next = due(end); next; next = due(end)) {
            beforeFire(m_timers.at(*next).due - m_now);
            m_now = m_timers.at(*next).due;
            fire(*next);
            drain();
        }
        beforeFire(end - m_now);
        m_now = end;
        drain();
    }
    [[nodiscard]] std::size_t activeTimers() const { return m_timers.size(); }

private:
    struct Entry
    {
        std::chrono::milliseconds due;
        std::chrono::milliseconds interval;
        std::function<void()> action;
    };

    Cancellable add(std::chrono::milliseconds delay, std::chrono::milliseconds interval, std::function<void()> action)
    {
        const int key = ++m_lastKey;
        m_timers.emplace(key, Entry{m_now + delay, interval, std::move(action)});
        return Cancellable([this, key] { m_timers.erase(key); });
    }
    [[nodiscard]] std::optional<int> due(std::chrono::milliseconds end) const
    {
        std::optional<int> first;
        for (const auto &[key, entry] : m_timers) {
            if (entry.due <= end && (!first || entry.due < m_timers.at(*first).due))
                first = key;
        }
        return first;
    }
    void fire(int key)
    {
        Entry &entry = m_timers.at(key);
        const auto action = entry.action;
        if (entry.interval.count() > 0)
            entry.due += entry.interval;
        else
            m_timers.erase(key);
        action();
    }

    std::map<int, Entry> m_timers;
    std::deque<std::pair<const QObject *, std::function<void()>>> m_queue;
    QObject m_guard;
    std::chrono::milliseconds m_now{0};
    int m_lastKey = 0;
};

}
