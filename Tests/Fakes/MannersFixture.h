#pragma once

#include "Fakes/EngineFixture.h"
#include "Fakes/FakeSurroundings.h"
#include "Manners/MannersService.h"

namespace tomcatto {

/// The timer engine with its good manners, among surroundings that a test tells.
class MannersFixture : public EngineFixture
{
public:
    using Key = MannersSettings::Key;

    void turnOn(std::initializer_list<Key> keys)
    {
        for (const Key key : keys)
            manners.settings().setValue(key, 1);
    }
    /// Tells a fact and lets everyone hear of it.
    void tell(FakeFact &fact, Fact now)
    {
        fact.become(now);
        runLoop.drain();
    }

    FakeSurroundings surroundings{runLoop};
    MannersService manners{{machine, timer, defaults, wallClock, runLoop, surroundings.ports()}};
};

}
