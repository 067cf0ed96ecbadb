#include "BreakOverlay/BreakContentModel.h"

#include "Foundation/Logger.h"

namespace tomcatto {

BreakContentModel::BreakContentModel(const BreakVideoSource &videos, bool isMuted, QObject *parent)
    : QObject(parent)
    , m_videos(videos)
    , m_isMuted(isMuted)
{
}

void BreakContentModel::bodyAppeared()
{
    if (m_hasAppeared)
        return;
    m_hasAppeared = true;
    m_videoUrl = m_videos.next ? m_videos.next() : QUrl();
    if (m_videoUrl.isEmpty())
        return;
    m_posterUrl = m_videos.poster ? m_videos.poster(m_videoUrl) : QUrl();
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
        .error(QStringLiteral("Video %1: %2").arg(m_videoUrl.toDisplayString(), reason));
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
