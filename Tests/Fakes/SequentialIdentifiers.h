#pragma once

#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

/// Identifiers that count up, so that tests can name them.
class SequentialIdentifiers final : public IdentifierSource
{
public:
    [[nodiscard]] QUuid next() override { return QUuid(++m_last, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0); }

private:
    uint m_last = 0;
};

}
