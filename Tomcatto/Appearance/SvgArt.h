#pragma once

#include <memory>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtGui/QColor>

class QPainter;
class QSvgRenderer;

namespace tomcatto {

/// One embedded SVG drawing, painted in a colour that stands in for `currentColor`. Parsed once for each colour.
class SvgArt final
{
public:
    SvgArt();
    ~SvgArt();
    Q_DISABLE_COPY_MOVE(SvgArt)

    /// Takes another drawing. @param resource a path below ":/tomcatto/".
    /// @return false when there is no such drawing; then nothing is painted.
    bool load(const QString &resource);

    /// Fits the drawing into the rectangle, its proportions kept. Does nothing without a drawing.
    void paint(QPainter &painter, const QRectF &target, const QColor &color);

private:
    bool parse(const QColor &color);

    QByteArray m_source;
    QColor m_color;
    std::unique_ptr<QSvgRenderer> m_renderer;
};

}
