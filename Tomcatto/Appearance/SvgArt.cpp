#include "SvgArt.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace tomcatto {

SvgArt::SvgArt() = default;
SvgArt::~SvgArt() = default;

bool SvgArt::load(const QString &resource)
{
    m_renderer.reset();
    m_source.clear();
    QFile file(resource);
    if (file.open(QIODevice::ReadOnly)) {
        m_source = file.readAll();
    }
    return !m_source.isEmpty();
}

bool SvgArt::parse(const QColor &color)
{
    if (m_renderer && m_color == color) {
        return m_renderer->isValid();
    }
    QByteArray tinted = m_source;
    // The colour's opacity goes on the painter: strokes over fills of one drawing must not show through each other.
    tinted.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
    m_renderer = std::make_unique<QSvgRenderer>(tinted);
    m_renderer->setAspectRatioMode(Qt::KeepAspectRatio);
    m_color = color;
    return m_renderer->isValid();
}

void SvgArt::paint(QPainter &painter, const QRectF &target, const QColor &color)
{
    if (m_source.isEmpty() || target.isEmpty() || !parse(color)) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * color.alphaF());
    m_renderer->render(&painter, target);
    painter.restore();
}

}
