// Records what drawing an SVG paints, for programs that draw it without reading SVG: record-drawing SVG RECORD

#include <cstdio>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <QtSvg/QSvgRenderer>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QFile source(words.value(1));
    if (words.size() != 3 || !source.open(QIODevice::ReadOnly)) {
        std::fputs("Usage: record-drawing SVG RECORD\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(source.readAll().replace("currentColor", "#000000"));
    QPicture picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(QPointF(), QSizeF(drawing.defaultSize())));
    painter.end();
    picture.setBoundingRect(QRect(QPoint(), drawing.defaultSize()));
    if (!drawing.isValid() || !picture.save(words[2])) {
        std::fprintf(stderr, "Error: %s cannot be recorded\n", qPrintable(words[1]));
        return 4;
    }
    return 0;
}
