#pragma once

#include "Platform/Ports/Surroundings.h"

#include <QtTest/QTest>

namespace tomcatto {

/// Watches a source and keeps what it tells.
struct ToldFacts
{
    explicit ToldFacts(FactSource &source)
        : watch(source.watch([this](Fact fact) { facts.push_back(fact); }))
    {
    }
    [[nodiscard]] bool becomes(Fact fact)
    {
        return QTest::qWaitFor([&] { return !facts.empty() && facts.back() == fact; }, 20'000);
    }

    std::vector<Fact> facts;
    Cancellable watch;
};

}
