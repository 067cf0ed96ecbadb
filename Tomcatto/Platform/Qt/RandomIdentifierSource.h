#pragma once

#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

/// Random identifiers (version 4) from the system's random source.
class RandomIdentifierSource final : public IdentifierSource
{
public:
    [[nodiscard]] QUuid next() override { return QUuid::createUuid(); }
};

}
