#pragma once

#include "Foundation/Cancellable.h"

#include <map>
#include <memory>
#include <vector>

namespace tomcatto {

/// The subscribers of one event, called in the order they subscribed. They may subscribe and cancel while they are
/// called: a cancelled one is no longer called, a new one is called from the next time on. One thread.
class HandlerList final
{
public:
    /// Adds a handler until the result is destroyed, which may be after this list.
    [[nodiscard]] Cancellable add(std::function<void()> handler)
    {
        const quint64 key = ++m_lastKey;
        m_handlers->emplace(key, std::make_shared<std::function<void()>>(std::move(handler)));
        return Cancellable([weak = std::weak_ptr(m_handlers), key] {
            if (const auto handlers = weak.lock())
                handlers->erase(key);
        });
    }
    /// Calls every handler. The list itself may be destroyed by one of them.
    void call() const
    {
        const auto handlers = m_handlers;
        std::vector<quint64> keys;
        for (const auto &[key, handler] : *handlers)
            keys.push_back(key);
        for (const quint64 key : keys) {
            const auto found = handlers->find(key);
            if (found == handlers->end())
                continue;
            const auto handler = found->second;
            (*handler)();
        }
    }

private:
    using Handlers = std::map<quint64, std::shared_ptr<std::function<void()>>>;

    std::shared_ptr<Handlers> m_handlers = std::make_shared<Handlers>();
    quint64 m_lastKey = 0;
};

}
