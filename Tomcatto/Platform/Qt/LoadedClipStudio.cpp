#include "Platform/Qt/LoadedClipStudio.h"

#include <QtCore/QPluginLoader>

namespace tomcatto {

LoadedClipStudio::LoadedClipStudio(QString pluginPath)
    : m_pluginPath(std::move(pluginPath))
{
}

const ClipStudio *LoadedClipStudio::loaded() const
{
    // The same object each time.
    QPluginLoader loader(m_pluginPath);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    return qobject_cast<ClipStudio *>(loader.instance());
}

std::expected<ClipFacts, StillFrameFailure> LoadedClipStudio::examine(const QString &path) const
{
    const ClipStudio *const studio = loaded();
    if (!studio)
        return std::unexpected(StillFrameFailure::unavailable);
    return studio->examine(path);
}

std::expected<ClipPreview, StillFrameFailure> LoadedClipStudio::makePreview(const QString &path) const
{
    const ClipStudio *const studio = loaded();
    if (!studio)
        return std::unexpected(StillFrameFailure::unavailable);
    return studio->makePreview(path);
}

}
