#include "Platform/FFmpeg/StructuralSimilarity.h"

namespace tomcatto {

namespace {

constexpr int window = 8;
constexpr int step = 4;
// They keep even areas from dividing by nothing: a hundredth and three hundredths of the brightest, squared.
constexpr double steadyMean = 2.55 * 2.55;
constexpr double steadyContrast = 7.65 * 7.65;

double similarityOf(const QImage &first, const QImage &second, QRect area)
{
    double sumFirst = 0;
    double sumSecond = 0;
    double squaresFirst = 0;
    double squaresSecond = 0;
    double products = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const uchar *const lineFirst = first.constScanLine(y);
        const uchar *const lineSecond = second.constScanLine(y);
        for (int x = area.left(); x <= area.right(); ++x) {
            const double a = lineFirst[x];
            const double b = lineSecond[x];
            sumFirst += a;
            sumSecond += b;
            squaresFirst += a * a;
            squaresSecond += b * b;
            products += a * b;
        }
    }
    const double count = 1.0 * area.width() * area.height();
    const double meanFirst = sumFirst / count;
    const double meanSecond = sumSecond / count;
    const double spreadFirst = squaresFirst / count - meanFirst * meanFirst;
    const double spreadSecond = squaresSecond / count - meanSecond * meanSecond;
    const double common = products / count - meanFirst * meanSecond;
    return (2 * meanFirst * meanSecond + steadyMean) * (2 * common + steadyContrast) /
           ((meanFirst * meanFirst + meanSecond * meanSecond + steadyMean) *
            (spreadFirst + spreadSecond + steadyContrast));
}

}

double structuralSimilarity(const QImage &first, const QImage &second)
{
    const QImage one = first.convertToFormat(QImage::Format_Grayscale8);
    const QImage other = second.scaled(first.size()).convertToFormat(QImage::Format_Grayscale8);
    const int width = qMin(window, one.width());
    const int height = qMin(window, one.height());
    double sum = 0;
    int count = 0;
    for (int y = 0; y + height <= one.height(); y += step) {
        for (int x = 0; x + width <= one.width(); x += step) {
            sum += similarityOf(one, other, {x, y, width, height});
            ++count;
        }
    }
    return count > 0 ? sum / count : 1;
}

}
