#include "Logo.h"

namespace tomcatto {

namespace {

// Up to this side the face would close up: the drawings for small sizes show the eyes alone.
constexpr qreal smallSide = 24;

}

Logo::Logo(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setImplicitSize(48, 48);
}

void Logo::setVariant(Variant variant)
{
    if (m_variant != variant) {
        m_variant = variant;
        update();
        Q_EMIT variantChanged();
    }
}

void Logo::setColor(const QColor &color)
{
    if (m_color != color) {
        m_color = color;
        update();
        Q_EMIT colorChanged();
    }
}

void Logo::setSize(qreal size)
{
    if (!qFuzzyCompare(implicitWidth(), size)) {
        setImplicitSize(size, size);
        Q_EMIT sizeChanged();
    }
}

QString Logo::drawing() const
{
    switch (m_variant) {
    case Variant::Colour:
        return QStringLiteral("logo-colour");
    case Variant::SmallColour:
        return QStringLiteral("logo-colour-small");
    case Variant::Mono:
        return width() <= smallSide ? QStringLiteral("logo-mono-small") : QStringLiteral("logo-mono");
    case Variant::Plate:
        return QStringLiteral("app-icon");
    }
    return {};
}

void Logo::paint(QPainter *painter)
{
    const QString name = drawing();
    if (m_loaded != name) {
        m_loaded = name;
        m_art.load(QStringLiteral(":/tomcatto/art/%1.svg").arg(name));
    }
    m_art.paint(*painter, boundingRect(), m_color);
}

}
