#pragma once

#include "BreakOverlay/BreakContent.h"
#include "BreakOverlay/BreakVideoSource.h"

#include <QtCore/QObject>

namespace tomcatto {

/// What one window that shows a break binds to: the content, the video chosen for this window and whether this window
/// is muted. Main thread only.
class BreakContentModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString phase READ phase NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString time READ time NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString spokenTime READ spokenTime NOTIFY contentChanged FINAL)
    Q_PROPERTY(double progress READ progress NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool canStart READ canStart NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool canExtend READ canExtend NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool soundEnabled READ soundEnabled NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool isMuted READ isMuted NOTIFY isMutedChanged FINAL)
    /// Empty until chosen and where there is none.
    Q_PROPERTY(QUrl videoUrl READ videoUrl NOTIFY videoChanged FINAL)
    Q_PROPERTY(QUrl posterUrl READ posterUrl NOTIFY videoChanged FINAL)

public:
    BreakContentModel(BreakVideoSource videos, bool isMuted, QObject *parent = nullptr);

    [[nodiscard]] QString phase() const { return m_content.phase; }
    [[nodiscard]] QString title() const { return m_content.title; }
    [[nodiscard]] QString subtitle() const { return m_content.subtitle; }
    [[nodiscard]] QString time() const { return m_content.time; }
    [[nodiscard]] QString spokenTime() const { return m_content.spokenTime; }
    [[nodiscard]] double progress() const noexcept { return m_content.progress; }
    [[nodiscard]] bool canStart() const noexcept { return m_content.canStart; }
    [[nodiscard]] bool canExtend() const noexcept { return m_content.canExtend; }
    [[nodiscard]] bool soundEnabled() const noexcept { return m_content.soundEnabled; }
    [[nodiscard]] bool isMuted() const noexcept { return m_isMuted; }
    [[nodiscard]] QUrl videoUrl() const { return m_video.url; }
    [[nodiscard]] QUrl posterUrl() const { return m_video.poster; }

    /// The window's first picture, with the countdown, is on screen: now there is time to choose a video. Later calls
    /// do nothing.
    Q_INVOKABLE void bodyAppeared();
    Q_INVOKABLE void toggleMute();
    /// The video does not play. Logged; everything else goes on.
    Q_INVOKABLE void videoFailed(const QString &reason);
    /// There is no sound device, and only the picture plays.
    Q_INVOKABLE void soundMissing();
    /// Starts a break that waits.
    Q_INVOKABLE virtual void start() {}
    /// Makes the break five minutes longer.
    Q_INVOKABLE virtual void extend() {}

Q_SIGNALS:
    void contentChanged();
    void isMutedChanged();
    void videoChanged();

protected:
    void setContent(const BreakContent &content);

private:
    void show(const BreakVideo &video);

    BreakVideoSource m_videos;
    BreakContent m_content;
    BreakVideo m_video;
    bool m_isMuted;
    bool m_hasAppeared = false;
};

}
