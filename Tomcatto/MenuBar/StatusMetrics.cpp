#include "MenuBar/StatusMetrics.h"

#include <algorithm>
#include <cmath>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>

namespace tomcatto {
namespace {

QFont sized(const QString &family, QFont::Weight weight)
{
    QFont font(family);
    font.setPixelSize(StatusMetrics::fontPixelSize);
    font.setWeight(weight);
    return font;
}

bool hasTabularDigits(const QFont &font)
{
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(QLatin1Char('0'));
    return std::ranges::all_of(QStringLiteral("123456789"),
                               [&](QChar digit) { return std::abs(metrics.horizontalAdvance(digit) - width) < 0.01; });
}

/// The first of the system's interface font and well-known ones that will do, else the system's fixed-width font.
QString tabularFamily()
{
    const QString families[] = {QFontDatabase::systemFont(QFontDatabase::GeneralFont).family(),
                                QStringLiteral("Noto Sans"), QStringLiteral("Liberation Sans"),
                                QStringLiteral("DejaVu Sans")};
    for (const QString &family : families) {
        if (QFontDatabase::hasFamily(family) && hasTabularDigits(sized(family, QFont::Bold)))
            return family;
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

/// Of a font as it was designed. At its own size it may be rounded to whole pixels, up or down as the screen's scale
/// has it.
double designedCapHeight(QFont font)
{
    constexpr int magnification = 100;
    font.setPixelSize(StatusMetrics::fontPixelSize * magnification);
    return QFontMetricsF(font).capHeight() / magnification;
}

}

const QFont &StatusMetrics::textFont()
{
    static const QFont font = sized(tabularFamily(), QFont::Bold);
    return font;
}

int StatusMetrics::logoHeight()
{
    static const int height =
        static_cast<int>(std::round(designedCapHeight(sized(textFont().family(), QFont::Normal)) * logoCapitals));
    return height;
}

int StatusMetrics::baseline()
{
    static const double capHeight = designedCapHeight(textFont());
    const double fromBottom = (height - capHeight) / 2 - 1;
    return static_cast<int>(std::floor(height - fromBottom));
}

}
