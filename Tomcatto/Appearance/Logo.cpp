#include "Logo.h"

namespace tomcatto {

QString Logo::resource() const
{
    // Up to this side the face would close up: the drawings for small sizes show the eyes alone.
    constexpr qreal smallSide = 24;
    switch (m_variant) {
    case Variant::Colour:
        return QStringLiteral("art/logo-colour");
    case Variant::SmallColour:
        return QStringLiteral("art/logo-colour-small");
    case Variant::Mono:
        return width() <= smallSide ? QStringLiteral("art/logo-mono-small") : QStringLiteral("art/logo-mono");
    case Variant::Plate:
        return QStringLiteral("art/app-icon");
    }
    return {};
}

}
