#include "MenuBar/StatusArt.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace tomcatto {
namespace {

/// Where the cup is drawn in its square of 24, line widths included.
constexpr QRectF cupBounds{2.55, 6.45, 18.3, 14.5};

QImage rasterised(QSvgRenderer &drawing, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(QPointF(), QSizeF(size)));
    return image;
}

}

StatusArt::StatusArt(QString folder)
    : m_folder(std::move(folder))
{
}

QByteArray StatusArt::read(const QString &name) const
{
    QFile file(QStringLiteral("%1/%2.svg").arg(m_folder, name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double StatusArt::logoAspect() const
{
    if (!m_logoAspect) {
        const QByteArray source = read(logoName);
        const QSize size = source.isEmpty() ? QSize() : QSvgRenderer(source).defaultSize();
        m_logoAspect = size.width() > 0 && size.height() > 0 ? double(size.width()) / size.height() : 0;
    }
    return *m_logoAspect;
}

QImage StatusArt::logo(QSize size) const
{
    QImage &image = m_logos[{size.width(), size.height()}];
    if (image.isNull() && !size.isEmpty()) {
        QSvgRenderer drawing(read(logoName));
        image = rasterised(drawing, size);
    }
    return image;
}

QImage StatusArt::cup(QSize size, const QColor &ink) const
{
    QImage &image = m_cups[{size.width(), size.height(), ink.rgb()}];
    if (image.isNull() && !size.isEmpty()) {
        QByteArray source = read(QStringLiteral("cup.and.saucer.fill"));
        source.replace("currentColor", ink.name(QColor::HexRgb).toLatin1());
        QSvgRenderer drawing(source);
        drawing.setViewBox(cupBounds);
        image = rasterised(drawing, size);
    }
    return image;
}

}
