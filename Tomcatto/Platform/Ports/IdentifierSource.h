#pragma once

#include <QtCore/QUuid>

namespace tomcatto {

/// Fresh random identifiers. Main thread only.
class IdentifierSource
{
public:
    virtual ~IdentifierSource() = default;

    /// A new random identifier.
    [[nodiscard]] virtual QUuid next() = 0;
};

/// The standard text form: upper case, without braces.
[[nodiscard]] inline QString identifierText(const QUuid &identifier)
{
    return identifier.toString(QUuid::WithoutBraces).toUpper();
}

}
