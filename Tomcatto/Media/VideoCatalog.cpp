#include "Media/VideoCatalog.h"

#include <QtCore/QRandomGenerator>

namespace tomcatto {

VideoCatalog::VideoCatalog(const BundledVideoProviding &bundledProvider, UserVideoProviding &userProvider,
                           RemoteVideoProviding *remoteProvider, QRandomGenerator &random)
    : m_bundledProvider(bundledProvider)
    , m_userProvider(userProvider)
    , m_remoteProvider(remoteProvider)
    , m_random(random)
    , m_logger(QStringLiteral("VideoCatalog"))
{
}

void VideoCatalog::nextVideoUrl(std::function<void(const std::optional<QUrl> &)> done)
{
    m_userProvider.candidates([this, done = std::move(done)](const UserVideoProviding::Candidates &candidates) {
        auto url = nextUserVideoUrl(candidates);
        if (!url && m_remoteProvider)
            url = m_remoteProvider->nextVideoUrl();
        done(url ? url : nextBundledVideoUrl());
    });
}

std::optional<QUrl> VideoCatalog::nextUserVideoUrl(const UserVideoProviding::Candidates &candidates)
{
    if (candidates.empty())
        return std::nullopt;
    const auto index = m_random.bounded(static_cast<quint64>(candidates.size()));
    const LocalVideoCandidate &chosen = candidates.at(index);
    if (const auto id = QUuid::fromString(chosen.identifier); !id.isNull())
        m_userProvider.markPlayed(id);
    else
        m_logger.debug(QStringLiteral("A user video's identifier is no UUID"));
    return chosen.fileUrl;
}

std::optional<QUrl> VideoCatalog::nextBundledVideoUrl()
{
    const auto &candidates = m_bundledProvider.candidates();
    if (candidates.empty())
        return std::nullopt;
    const auto count = static_cast<qint64>(candidates.size());
    const auto index = static_cast<std::size_t>(m_bundledCursor % count);
    m_bundledCursor = (m_bundledCursor + 1) % count;
    return candidates.at(index).fileUrl;
}

}
