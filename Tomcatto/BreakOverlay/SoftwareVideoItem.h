#pragma once

#include "FilmPlayer.h"
#include "FramePicture.h"

#include <QtQuick/QQuickItem>

namespace tomcatto {

/// Shows a film where there is no graphics card: fills itself with each frame, cropped, and paints only what of it
/// changed. It keeps the last frame while there is no newer, so that nothing flashes where a loop begins again.
class SoftwareVideoItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tomcatto::FilmPlayer *film READ film WRITE setFilm NOTIFY filmChanged FINAL)

public:
    explicit SoftwareVideoItem(QQuickItem *parent = nullptr);

    [[nodiscard]] FilmPlayer *film() const noexcept { return m_film; }
    void setFilm(FilmPlayer *film);

Q_SIGNALS:
    void filmChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    QPointer<FilmPlayer> m_film;
    FramePicture m_picture;
};

}
