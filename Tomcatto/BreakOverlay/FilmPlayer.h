#pragma once

#include "Platform/Film/RunningFilm.h"

#include <QtQml/QQmlEngine>

namespace tomcatto {

/// A film for views: begins when it is made, plays without an end, and ends with this. Main thread only.
class FilmPlayer : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    /// Read once. Without one only what playing takes is loaded.
    Q_PROPERTY(QUrl source MEMBER m_source FINAL REQUIRED)
    Q_PROPERTY(bool isMuted READ isMuted WRITE setMuted NOTIFY wishChanged FINAL)
    /// Shows a frame and stops there.
    Q_PROPERTY(bool isStill READ isStill WRITE setStill NOTIFY wishChanged FINAL)
    /// Whether a frame came.
    Q_PROPERTY(bool hasFrame READ hasFrame NOTIFY hasFrameChanged FINAL)

public:
    explicit FilmPlayer(QObject *parent = nullptr);
    ~FilmPlayer() override;

    [[nodiscard]] bool isMuted() const noexcept { return m_wish.isMuted; }
    void setMuted(bool isMuted);
    [[nodiscard]] bool isStill() const noexcept { return m_wish.isStill; }
    void setStill(bool isStill);
    [[nodiscard]] bool hasFrame() const noexcept { return m_frame.isValid(); }
    [[nodiscard]] const FilmFrame &frame() const noexcept { return m_frame; }

    void classBegin() override {}
    void componentComplete() override;

Q_SIGNALS:
    void wishChanged();
    void hasFrameChanged();
    void frameChanged();
    void failed(const QString &reason);
    /// Nothing can be heard here.
    void soundMissing();

private:
    void follow();
    void takeFrame(const FilmFrame &frame);

    QUrl m_source;
    FilmWish m_wish;
    std::unique_ptr<RunningFilm> m_film;
    FilmFrame m_frame;
};

}
