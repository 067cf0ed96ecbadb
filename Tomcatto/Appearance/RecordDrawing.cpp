// Draws an SVG for programs that do not read SVG: record-drawing SVG NAME PIXELS…
// NAME.picture is a record of what drawing it paints. NAME-PIXELS.argb is it in a square of so many pixels, as an image
// of premultiplied ARGB has them in memory.

#include <cstdio>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <QtSvg/QSvgRenderer>

namespace {

bool writePixels(QSvgRenderer &drawing, int edge, const QString &path)
{
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, image.rect());
    painter.end();
    QFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes()) == image.sizeInBytes();
}

bool writeRecord(QSvgRenderer &drawing, const QString &path)
{
    QPicture picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(QPointF(), QSizeF(drawing.defaultSize())));
    painter.end();
    picture.setBoundingRect(QRect(QPoint(), drawing.defaultSize()));
    return picture.save(path);
}

}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QFile source(words.value(1));
    if (words.size() < 3 || !source.open(QIODevice::ReadOnly)) {
        std::fputs("Usage: record-drawing SVG NAME PIXELS…\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(source.readAll().replace("currentColor", "#000000"));
    bool isWritten = drawing.isValid() && writeRecord(drawing, words[2] + QStringLiteral(".picture"));
    for (const QString &edge : words.mid(3))
        isWritten = isWritten && writePixels(drawing, edge.toInt(), QStringLiteral("%1-%2.argb").arg(words[2], edge));
    if (!isWritten)
        std::fprintf(stderr, "Error: %s cannot be recorded\n", qPrintable(words[1]));
    return isWritten ? 0 : 4;
}
