#include "CatMarker.h"

#include "CatDrawing.h"

namespace tomcatto {

CatMarker::CatMarker(QQuickItem *parent)
    : Painting(parent)
{
    setImplicitSize(15, 15);
}

void CatMarker::paint(QPainter *painter)
{
    paintCat(*painter, boundingRect(), m_fill, m_outline);
}

}
