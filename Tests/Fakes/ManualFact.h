#pragma once

#include "Platform/Ports/SharedFactSource.h"

namespace tomcatto {

/// A fact that the test tells, to those who watch then.
class ManualFact final : public SharedFactSource
{
public:
    using SharedFactSource::tell;
    bool isWatched = false;

private:
    void begin() override { isWatched = true; }
    void end() override { isWatched = false; }
};

}
