#pragma once

#include "Platform/Ports/StillFrame.h"

#include <mutex>

namespace tomcatto {

/// Reads videos through the plugin "tomcatto-media", which brings the libraries for it into the process with the first
/// use and stays. Where there is no such plugin, every call fails with `unavailable`. Any thread but the main one.
class LoadedStillFrame final : public StillFrame
{
public:
    /// @param pluginPath the plugin's file, which may be missing
    explicit LoadedStillFrame(QString pluginPath);

    [[nodiscard]] std::expected<VideoLook, StillFrameFailure> look(const QString &path, StillFrameRequest request,
                                                                   std::stop_token stop) const override;

    /// Where the plugin lies when the program's file is in `programFolder`.
    [[nodiscard]] static QString pluginPath(const QString &programFolder);

private:
    [[nodiscard]] const StillFrame *loaded() const;

    QString m_pluginPath;
    mutable std::once_flag m_once;
    mutable const StillFrame *m_loaded = nullptr;
};

}
