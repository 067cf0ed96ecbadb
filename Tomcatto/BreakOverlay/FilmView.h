#pragma once

#include "FilmPlayer.h"
#include "FramePicture.h"

#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace tomcatto {

/// Shows a film: fills itself with each frame, cropped, and paints only what of it changed; where there is a graphics
/// card that scales it. It keeps the last frame while there is no newer, so that nothing flashes where a loop begins
/// again.
class FilmView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tomcatto::FilmPlayer *film READ film WRITE setFilm NOTIFY filmChanged FINAL)

public:
    explicit FilmView(QQuickItem *parent = nullptr);

    [[nodiscard]] FilmPlayer *film() const noexcept { return m_film; }
    void setFilm(FilmPlayer *film);

Q_SIGNALS:
    void filmChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    [[nodiscard]] QSGNode *painted(QSGNode *oldNode);
    [[nodiscard]] QSGNode *rendered(QSGNode *oldNode);

    QPointer<FilmPlayer> m_film;
    FramePicture m_picture;
};

}
