#include "SoftwareVideoItem.h"

#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

namespace tomcatto {

SoftwareVideoItem::SoftwareVideoItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(&m_sink, &QVideoSink::videoFrameChanged, this, &SoftwareVideoItem::show);
}

void SoftwareVideoItem::show(const QVideoFrame &frame)
{
    // A player sends an empty frame between two rounds.
    if (!frame.isValid())
        return;
    const bool isFirst = !hasFrame();
    m_frame = frame;
    m_isNew = true;
    update();
    if (isFirst)
        Q_EMIT hasFrameChanged();
}

void SoftwareVideoItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    m_isNew = m_frame.isValid();
    update();
}

QSGNode *SoftwareVideoItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (!m_isNew)
        return node;
    m_isNew = false;
    const QSize pixels = (size() * window()->effectiveDevicePixelRatio()).toSize();
    const QImage image = m_picture.picture(m_frame, pixels);
    if (image.isNull())
        return node;
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
    }
    node->setTexture(window()->createTextureFromImage(image, QQuickWindow::TextureIsOpaque));
    node->setRect(boundingRect());
    return node;
}

}
