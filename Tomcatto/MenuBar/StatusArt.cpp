#include "MenuBar/StatusArt.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>

namespace tomcatto {
namespace {

/// Where the cup is drawn in its square of 24, line widths included.
constexpr QRectF cupBounds{2.55, 6.45, 18.3, 14.5};

/// @param part of the drawing that fills the image
QImage rasterised(QPicture drawing, const QRectF &part, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(size.width() / part.width(), size.height() / part.height());
    painter.translate(-part.topLeft());
    drawing.play(&painter);
    return image;
}

}

StatusArt::StatusArt(QString folder)
    : m_folder(std::move(folder))
{
}

QPicture StatusArt::drawing(const QString &name) const
{
    QPicture drawing;
    // One that is missing stays empty.
    static_cast<void>(drawing.load(QStringLiteral("%1/%2.picture").arg(m_folder, name)));
    return drawing;
}

bool StatusArt::load(QImage &logo, QSize size) const
{
    QFile file(QStringLiteral("%1/%2-%3.argb").arg(m_folder, logoName).arg(size.height()));
    if (size.width() != size.height() || !file.open(QIODevice::ReadOnly))
        return false;
    logo = QImage(size, QImage::Format_ARGB32_Premultiplied);
    return file.read(reinterpret_cast<char *>(logo.bits()), logo.sizeInBytes()) == logo.sizeInBytes();
}

double StatusArt::logoAspect() const
{
    if (!m_logoAspect) {
        const QSize size = drawing(logoName).boundingRect().size();
        m_logoAspect = size.isEmpty() ? 0 : double(size.width()) / size.height();
    }
    return *m_logoAspect;
}

QImage StatusArt::logo(QSize size) const
{
    QImage &image = m_logos[{size.width(), size.height()}];
    if (image.isNull() && !size.isEmpty() && !load(image, size)) {
        const QPicture logo = drawing(logoName);
        image = rasterised(logo, logo.boundingRect(), size);
    }
    return image;
}

QImage StatusArt::cup(QSize size, const QColor &ink) const
{
    QImage &image = m_cups[{size.width(), size.height(), ink.rgb()}];
    if (image.isNull() && !size.isEmpty()) {
        image = rasterised(drawing(QStringLiteral("cup.and.saucer.fill")), cupBounds, size);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), QColor(ink.rgb()));
    }
    return image;
}

}
