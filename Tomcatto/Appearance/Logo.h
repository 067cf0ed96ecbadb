#pragma once

#include "SvgArt.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// The mark in one of its drawings. Decoration: the surroundings name it.
class Logo : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Variant variant READ variant WRITE setVariant NOTIFY variantChanged FINAL)
    /// Only the one-colour drawing takes it.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    /// Side of the square box in logical pixels; the item takes it as its implicit size.
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged FINAL)

public:
    /// `Mono` changes to its simpler drawing by itself up to 24 px. `Plate` is the application's icon.
    enum class Variant { Colour, SmallColour, Mono, Plate };
    Q_ENUM(Variant)

    explicit Logo(QQuickItem *parent = nullptr);

    [[nodiscard]] Variant variant() const noexcept { return m_variant; }
    void setVariant(Variant variant);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    [[nodiscard]] qreal size() const { return implicitWidth(); }
    void setSize(qreal size);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void variantChanged();
    void colorChanged();
    void sizeChanged();

private:
    [[nodiscard]] QString drawing() const;

    Variant m_variant = Variant::Colour;
    QColor m_color = Qt::black;
    SvgArt m_art;
    QString m_loaded;
};

}
