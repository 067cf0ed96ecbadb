#include "MenuBar/TrayIconRenderer.h"

#include <cmath>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {
namespace {

/// Everything is drawn on a grid of 24.
constexpr double grid = 24;
constexpr double cornerRadius = 7;
constexpr double logoHeight = 17;
constexpr double discDiameter = 10;

void drawPausedDisc(QPainter &painter, const StatusPillContent &content)
{
    const double edge = grid - discDiameter;
    painter.setPen(Qt::NoPen);
    painter.setBrush(content.isDarkBar ? QColor(0x2A, 0x27, 0x29) : QColor(0xEC, 0xE9, 0xE7));
    painter.drawEllipse(QRectF(edge, edge, discDiameter, discDiameter));
    painter.setBrush(StatusPalette::forBar(content.isDarkBar).ink);
    for (const double x : {edge + 2.3, edge + 5.6})
        painter.drawRoundedRect(QRectF(x, edge + 2, 2.1, 6), 0.8, 0.8);
}

}

TrayIconRenderer::TrayIconRenderer(const StatusArt &art)
    : m_art(art)
{
}

std::optional<QImage> TrayIconRenderer::render(const StatusPillContent &content, int edge) const
{
    const double aspect = m_art.logoAspect();
    if (aspect <= 0)
        return std::nullopt;
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = edge / grid;

    QPainterPath outline;
    outline.addRoundedRect(0, 0, edge, edge, cornerRadius * scale, cornerRadius * scale);
    painter.fillPath(outline, StatusPalette::forBar(content.isDarkBar).pill);
    // Whole pixels: the level stays sharp and changes as rarely as the eye can see.
    const double level = std::round(StatusPillRenderer::fillFraction(content) * edge);
    QPainterPath part;
    part.addRect(0, edge - level, edge, level);
    if (level > 0)
        painter.fillPath(outline.intersected(part), StatusPillRenderer::fill(content));

    const QSize logo(static_cast<int>(std::round(logoHeight * scale * aspect)),
                     static_cast<int>(std::round(logoHeight * scale)));
    painter.drawImage(QPoint((edge - logo.width()) / 2, (edge - logo.height()) / 2), m_art.logo(logo));
    if (StatusPillRenderer::showsPause(content)) {
        painter.scale(scale, scale);
        drawPausedDisc(painter, content);
    }
    return image;
}

}
