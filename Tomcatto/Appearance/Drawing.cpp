#include "Drawing.h"

namespace tomcatto {

Drawing::Drawing(qreal size, QQuickItem *parent)
    : Painting(parent)
{
    setImplicitSize(size, size);
}

void Drawing::setSize(qreal size)
{
    if (qFuzzyCompare(implicitWidth(), size))
        return;
    setImplicitSize(size, size);
    Q_EMIT changed();
}

bool Drawing::load()
{
    const QString wanted = resource();
    if (m_loaded != wanted) {
        m_loaded = wanted;
        m_isFound = m_art.load(QStringLiteral(":/tomcatto/%1.svg").arg(wanted));
    }
    return m_isFound;
}

void Drawing::paint(QPainter *painter)
{
    if (load())
        m_art.paint(*painter, boundingRect(), m_color);
}

}
