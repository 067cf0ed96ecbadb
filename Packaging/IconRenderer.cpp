// Draws an SVG as a square PNG: icon-renderer SVG PIXELS PNG

#include <cstdio>
#include <QtCore/QCoreApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const int edge = words.value(2).toInt();
    QSvgRenderer art(words.value(1));
    if (words.size() != 4 || edge < 1 || !art.isValid()) {
        std::fputs("Usage: icon-renderer SVG PIXELS PNG\n", stderr);
        return 2;
    }
    QImage icon(edge, edge, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    art.setAspectRatioMode(Qt::KeepAspectRatio);
    art.render(&painter);
    painter.end();
    if (!icon.save(words[3], "PNG")) {
        std::fprintf(stderr, "Error: %s cannot be written\n", qPrintable(words[3]));
        return 4;
    }
    return 0;
}
