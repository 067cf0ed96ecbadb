#pragma once

#include "FramePicture.h"

#include <QtMultimedia/QVideoSink>
#include <QtQuick/QQuickItem>

namespace tomcatto {

/// Shows a video where there is no graphics card: fills itself with each frame, cropped, and keeps the last one while
/// there is no newer, so that nothing flashes where a loop begins again. Give it to a player as its output.
class SoftwareVideoItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether a frame came since the item was made.
    Q_PROPERTY(bool hasFrame READ hasFrame NOTIFY hasFrameChanged FINAL)

public:
    explicit SoftwareVideoItem(QQuickItem *parent = nullptr);

    [[nodiscard]] bool hasFrame() const noexcept { return m_frame.isValid(); }
    /// Where the player puts its frames; it looks for a method of this name.
    Q_INVOKABLE QVideoSink *videoSink() { return &m_sink; }

Q_SIGNALS:
    void hasFrameChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void show(const QVideoFrame &frame);

    QVideoSink m_sink;
    QVideoFrame m_frame;
    FramePicture m_picture;
    bool m_isNew = false;
};

}
