#include "MenuBar/StatusPillRenderer.h"

#include "MenuBar/StatusMetrics.h"

#include <algorithm>
#include <cmath>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {
namespace {

using Metrics = StatusMetrics;

/// How much of the tint goes with a whole breath.
constexpr double deepestBreath = 0.65;

bool showsText(const StatusPillContent &content)
{
    return content.style == MenuBarStyle::countdown;
}

double elementsWidth(const StatusPillContent &content)
{
    double width = 0;
    if (content.breakReady)
        width += Metrics::symbolWidth + Metrics::gap;
    if (StatusPillRenderer::showsPause(content))
        width += Metrics::pauseWidth + Metrics::gap;
    if (showsText(content))
        width += QFontMetricsF(Metrics::textFont()).horizontalAdvance(content.title) + Metrics::gap;
    return width;
}

void drawBackground(QPainter &painter, const StatusPillContent &content, QSizeF size)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF({}, size), size.height() / 2, size.height() / 2);
    painter.fillPath(outline, StatusPalette::forBar(content.isDarkBar).pill);
    const double fraction = StatusPillRenderer::fillFraction(content);
    if (fraction <= 0)
        return;
    // An intersection has smooth edges where a clip would not.
    QPainterPath part;
    part.addRect(0, 0, fraction * size.width(), size.height());
    painter.fillPath(fraction < 1 ? outline.intersected(part) : outline, StatusPillRenderer::fill(content));
}

void drawPauseBars(QPainter &painter, double x, const QColor &ink)
{
    const double y = (Metrics::height - Metrics::pauseBarHeight) / 2;
    const double radius = Metrics::pauseBarWidth / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (const double left : {x, x + Metrics::pauseBarStep})
        painter.drawRoundedRect(QRectF(left, y, Metrics::pauseBarWidth, Metrics::pauseBarHeight), radius, radius);
}

void drawText(QPainter &painter, double x, const QString &text, const QColor &ink)
{
    painter.setFont(Metrics::textFont());
    painter.setPen(ink);
    painter.drawText(QPointF(x, Metrics::baseline()), text);
}

}

StatusPillRenderer::StatusPillRenderer(const StatusArt &art)
    : m_art(art)
{
}

std::optional<QImage> StatusPillRenderer::render(const StatusPillContent &content, double scale) const
{
    const double aspect = m_art.logoAspect();
    if (aspect <= 0)
        return std::nullopt;
    const QSizeF logoSize(Metrics::logoHeight() * aspect, Metrics::logoHeight());
    const double width = std::ceil(logoSize.width() + Metrics::padding + elementsWidth(content) + Metrics::padding);
    QImage image((QSizeF(width, Metrics::height) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter, content, {width, double(Metrics::height)});
    drawElements(painter, content, logoSize, scale);
    return image;
}

void StatusPillRenderer::drawElements(QPainter &painter, const StatusPillContent &content, QSizeF logoSize,
                                      double scale) const
{
    const QRectF logo(QPointF(Metrics::padding, std::floor((Metrics::height - logoSize.height()) / 2)), logoSize);
    painter.drawImage(logo, m_art.logo((logoSize * scale).toSize()));
    double x = std::trunc(logo.right());
    QColor color = ink(content);
    if (content.breakReady) {
        x += Metrics::gap;
        const QSizeF size(Metrics::symbolWidth, Metrics::symbolHeight);
        painter.drawImage(QRectF(QPointF(x, (Metrics::height - size.height()) / 2), size),
                          m_art.cup((size * scale).toSize(), color));
        x += size.width();
    }
    color.setAlphaF(color.alphaF() * static_cast<float>(inkFactor(content)));
    if (showsPause(content)) {
        x += Metrics::gap;
        drawPauseBars(painter, x, color);
        x += Metrics::pauseWidth;
    }
    if (showsText(content))
        drawText(painter, x + Metrics::gap, content.title, color);
}

QColor StatusPillRenderer::ink(const StatusPillContent &content)
{
    const StatusPalette &palette = StatusPalette::forBar(content.isDarkBar);
    if (content.breakReady)
        return palette.onSolid;
    return content.tone == StatusPillTone::overtime ? palette.solid(StatusPillTone::overtime) : palette.ink;
}

double StatusPillRenderer::inkFactor(const StatusPillContent &content)
{
    if (content.breakReady)
        return 1;
    if (content.tone == StatusPillTone::idle)
        return 0.5;
    return content.isPaused ? 0.6 : 1;
}

QColor StatusPillRenderer::fill(const StatusPillContent &content)
{
    const StatusPalette &palette = StatusPalette::forBar(content.isDarkBar);
    if (content.breakReady)
        return palette.solid(content.tone);
    if (content.isPaused)
        return palette.pausedFill;
    QColor tint = palette.tint(content.tone);
    // A weaker tint leaves the text more contrast, never less.
    tint.setAlphaF(tint.alphaF() * static_cast<float>(1 - deepestBreath * std::clamp(content.breath, 0.0, 1.0)));
    return tint;
}

double StatusPillRenderer::fillFraction(const StatusPillContent &content)
{
    if (content.breakReady || content.tone == StatusPillTone::overtime)
        return 1;
    return content.tone == StatusPillTone::idle ? 0 : std::clamp(content.progress, 0.0, 1.0);
}

bool StatusPillRenderer::showsPause(const StatusPillContent &content)
{
    return content.isPaused && !content.breakReady && content.tone != StatusPillTone::idle;
}

}
