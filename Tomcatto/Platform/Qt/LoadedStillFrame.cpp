#include "Platform/Qt/LoadedStillFrame.h"

#include "Foundation/Logger.h"

#include <QtCore/QPluginLoader>

namespace tomcatto {

LoadedStillFrame::LoadedStillFrame(QString pluginPath)
    : m_pluginPath(std::move(pluginPath))
{
}

QString LoadedStillFrame::pluginPath(const QString &programFolder)
{
    return programFolder + QStringLiteral("/tomcatto-media.so");
}

const StillFrame *LoadedStillFrame::loaded() const
{
    std::call_once(m_once, [this] {
        QPluginLoader loader(m_pluginPath);
        // A video that took too long may still be read by a thread of the plugin's.
        loader.setLoadHints(QLibrary::PreventUnloadHint);
        m_loaded = qobject_cast<StillFrame *>(loader.instance());
        if (!m_loaded)
            Logger(QStringLiteral("LoadedStillFrame"))
                .info(QStringLiteral("Videos cannot be read: ") + loader.errorString());
    });
    return m_loaded;
}

std::expected<VideoLook, StillFrameFailure> LoadedStillFrame::look(const QString &path, StillFrameRequest request,
                                                                   std::stop_token stop) const
{
    const StillFrame *const frames = loaded();
    if (!frames)
        return std::unexpected(StillFrameFailure::unavailable);
    return frames->look(path, request, std::move(stop));
}

}
