#include "BreakOverlay/BreakContentModel.h"

#include "Foundation/Logger.h"

#include <QtCore/QPointer>

namespace tomcatto {

BreakContentModel::BreakContentModel(BreakVideoSource videos, bool isMuted, QObject *parent)
    : QObject(parent)
    , m_videos(std::move(videos))
    , m_isMuted(isMuted)
{
}

void BreakContentModel::bodyAppeared()
{
    if (m_hasAppeared)
        return;
    m_hasAppeared = true;
    if (!m_videos.next)
        return;
    // The window may be gone by the time a disk answers.
    m_videos.next([self = QPointer(this)](const BreakVideo &video) {
        if (self)
            self->show(video);
    });
}

void BreakContentModel::show(const BreakVideo &video)
{
    m_video = video;
    Q_EMIT videoChanged();
}

void BreakContentModel::toggleMute()
{
    m_isMuted = !m_isMuted;
    Q_EMIT isMutedChanged();
}

void BreakContentModel::videoFailed(const QString &reason)
{
    Logger(QStringLiteral("VideoPlayerView"))
        .error(QStringLiteral("Video %1: %2").arg(m_video.url.toDisplayString(), reason));
}

void BreakContentModel::soundMissing()
{
    if (m_videos.soundMissing)
        m_videos.soundMissing();
}

void BreakContentModel::setContent(const BreakContent &content)
{
    if (content == m_content)
        return;
    m_content = content;
    Q_EMIT contentChanged();
}

}
