#pragma once

#include "Fakes/ManualRunLoop.h"
#include "Platform/Ports/Surroundings.h"

#include <map>

namespace tomcatto {

/// A fact that a test tells. Those who watch hear of it in turns of the run loop of their own, as from the real ones.
class FakeFact final : public FactSource, public IdleSource
{
public:
    explicit FakeFact(MainRunLoop &runLoop)
        : m_runLoop(runLoop)
    {
    }

    [[nodiscard]] Cancellable watch(Handler handler) override { return watch(std::chrono::seconds{0}, handler); }
    [[nodiscard]] Cancellable watch(std::chrono::seconds rest, Handler handler) override
    {
        const int key = ++m_lastKey;
        m_watchers.emplace(key, Watcher{rest, std::move(handler)});
        if (const auto known = m_facts.contains(rest) ? m_facts.at(rest) : fact; known != Fact::unknown)
            tellSoon(key, known);
        ++watched;
        return Cancellable([this, key] { m_watchers.erase(key); });
    }

    /// Becomes this for everyone.
    void become(Fact now)
    {
        fact = now;
        m_facts.clear();
        for (const auto &[key, watcher] : m_watchers)
            tellSoon(key, now);
    }
    /// Becomes this for those who asked for a rest of this length.
    void become(std::chrono::seconds rest, Fact now)
    {
        m_facts[rest] = now;
        for (const auto &[key, watcher] : m_watchers) {
            if (watcher.rest == rest)
                tellSoon(key, now);
        }
    }
    [[nodiscard]] bool isWatched() const { return !m_watchers.empty(); }

    Fact fact = Fact::no;
    /// How often somebody began to watch.
    int watched = 0;

private:
    struct Watcher
    {
        std::chrono::seconds rest;
        Handler handler;
    };

    void tellSoon(int key, Fact now)
    {
        m_runLoop.async(m_context, [this, key, now] {
            if (const auto found = m_watchers.find(key); found != m_watchers.end())
                Handler(found->second.handler)(now);
        });
    }

    MainRunLoop &m_runLoop;
    QObject m_context;
    std::map<int, Watcher> m_watchers;
    std::map<std::chrono::seconds, Fact> m_facts;
    int m_lastKey = 0;
};

/// What surrounds a person, as a test tells it.
struct FakeSurroundings
{
    explicit FakeSurroundings(MainRunLoop &runLoop)
        : call(runLoop)
        , fullScreen(runLoop)
        , lock(runLoop)
        , idle(runLoop)
    {
    }

    [[nodiscard]] Surroundings ports() { return {call, fullScreen, lock, idle}; }

    FakeFact call;
    FakeFact fullScreen;
    FakeFact lock;
    FakeFact idle;
};

}
