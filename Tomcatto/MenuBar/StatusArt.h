#pragma once

#include <map>
#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPicture>

namespace tomcatto {

/// The embedded drawings of the status item, rasterised once for each size and colour. They are records of what drawing
/// them paints, and the mark is there in usual sizes, so that a hidden application needs neither what reads SVG nor
/// what draws strokes and gradients. Main thread only.
class StatusArt final
{
public:
    /// The name of the application's mark among the assets.
    static constexpr QLatin1String logoName{"MenuBarLogo"};

    /// @param folder resource folder with the drawings.
    explicit StatusArt(QString folder = QStringLiteral(":/tomcatto/menubar"));

    /// Width ÷ height of the mark; 0 where the asset is missing or has no width.
    [[nodiscard]] double logoAspect() const;
    /// The mark in its own colours. @param size in device pixels
    [[nodiscard]] QImage logo(QSize size) const;
    /// The cup, cropped to what is drawn, in a colour. @param size in device pixels
    [[nodiscard]] QImage cup(QSize size, const QColor &ink) const;

private:
    /// Takes the mark as it was drawn when the program was built. @return false where this size was not
    [[nodiscard]] bool load(QImage &logo, QSize size) const;
    [[nodiscard]] QPicture drawing(const QString &name) const;

    QString m_folder;
    mutable std::optional<double> m_logoAspect;
    mutable std::map<std::pair<int, int>, QImage> m_logos;
    mutable std::map<std::tuple<int, int, QRgb>, QImage> m_cups;
};

}
