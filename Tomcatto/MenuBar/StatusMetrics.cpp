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

}

const QFont &StatusMetrics::textFont()
{
    static const QFont font = sized(tabularFamily(), QFont::Bold);
    return font;
}

int StatusMetrics::logoHeight()
{
    static const int height = static_cast<int>(
        std::round(QFontMetricsF(sized(textFont().family(), QFont::Normal)).capHeight() * logoCapitals));
    return height;
}

}
