#pragma once

#include "Drawing.h"

namespace tomcatto {

/// The mark in one of its drawings, of which only the one-colour one takes the colour. Decoration: what is around it
/// names it.
class Logo : public tomcatto::Drawing
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Variant variant MEMBER m_variant NOTIFY changed FINAL)

public:
    /// `Mono` changes to its simpler drawing by itself up to 24 px. `Plate` is the application's icon.
    enum class Variant { Colour, SmallColour, Mono, Plate };
    Q_ENUM(Variant)

    explicit Logo(QQuickItem *parent = nullptr)
        : Drawing(48, parent)
    {
    }

protected:
    [[nodiscard]] QString resource() const override;

private:
    Variant m_variant = Variant::Colour;
};

}
