#pragma once

#include "Platform/Ports/Surroundings.h"

#include <memory>
#include <QtCore/QObject>
#include <utility>
#include <vector>

namespace tomcatto {

/// A source that looks once for all who watch it, and only while somebody does. Main thread only.
class SharedFactSource : public FactSource
{
public:
    SharedFactSource() = default;
    SharedFactSource(const SharedFactSource &) = delete;
    SharedFactSource &operator=(const SharedFactSource &) = delete;

    [[nodiscard]] Cancellable watch(Handler handler) final
    {
        const auto watcher = std::make_shared<const Handler>(std::move(handler));
        m_watchers.push_back(watcher);
        if (m_watchers.size() == 1)
            begin();
        else if (m_fact != Fact::unknown)
            post(watcher, m_fact);
        return Cancellable([this, held = std::weak_ptr(watcher)] {
            if (const Watcher gone = held.lock())
                letGo(gone);
        });
    }

protected:
    /// Begins to look, for the first who watches; the fact is unknown until it is told.
    virtual void begin() = 0;
    /// Lets go of all that looking takes, after the last one; not called when the source is destroyed before.
    virtual void end() = 0;

    [[nodiscard]] Fact fact() const noexcept { return m_fact; }
    /// What is known now; those who watch hear of it where it is another.
    void tell(Fact fact)
    {
        // What comes late is not kept for those who watch next.
        if (m_watchers.empty() || std::exchange(m_fact, fact) == fact)
            return;
        for (const Watcher &watcher : m_watchers)
            post(watcher, fact);
    }

private:
    using Watcher = std::shared_ptr<const Handler>;

    void post(const std::weak_ptr<const Handler> &to, Fact fact)
    {
        QMetaObject::invokeMethod(
            &m_turns,
            [to, fact] {
                // Held, because the handler itself may cancel.
                if (const Watcher watcher = to.lock())
                    (*watcher)(fact);
            },
            Qt::QueuedConnection);
    }

    void letGo(const Watcher &watcher)
    {
        std::erase(m_watchers, watcher);
        if (!m_watchers.empty())
            return;
        end();
        m_fact = Fact::unknown;
    }

    std::vector<Watcher> m_watchers;
    Fact m_fact = Fact::unknown;
    QObject m_turns;
};

}
