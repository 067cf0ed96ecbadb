#include "MainWindow/VideoStill.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {

namespace {

constexpr QSize tileSize(205, 115);
constexpr qreal cornerRadius = 12;
// Fast rather than small: the picture only lives as long as the page.
constexpr int pngQuality = 80;

}

QString videoStillAddress(QIODevice &picture, double scale)
{
    const qreal pixels = qBound(1.0, scale, 2.0);
    const QSize stillSize = (QSizeF(tileSize) * pixels).toSize();
    QImageReader reader(&picture);
    reader.setAutoTransform(true);
    // The decoder makes the small picture at once, in an eighth of the time.
    if (reader.size().isValid())
        reader.setScaledSize(reader.size().scaled(stillSize, Qt::KeepAspectRatioByExpanding));
    const QImage scaled = reader.read();
    if (scaled.isNull())
        return {};

    QImage still(stillSize, QImage::Format_ARGB32_Premultiplied);
    still.fill(Qt::transparent);
    QPainter painter(&still);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath outline;
    outline.addRoundedRect(still.rect(), cornerRadius * pixels, cornerRadius * pixels);
    const QSizeF covering = QSizeF(scaled.size()).scaled(QSizeF(stillSize), Qt::KeepAspectRatioByExpanding);
    painter.setClipPath(outline);
    painter.drawImage(
        QRectF(QPointF((stillSize.width() - covering.width()) / 2, (stillSize.height() - covering.height()) / 2),
               covering),
        scaled);
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !still.save(&buffer, "PNG", pngQuality))
        return {};
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

}
