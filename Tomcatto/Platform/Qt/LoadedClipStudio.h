#pragma once

#include "Platform/Ports/ClipStudio.h"

namespace tomcatto {

/// Looks at clips through the plugin "tomcatto-media", which is loaded with the first of them. Where there is no such
/// plugin, every call fails with `unavailable`. Any thread.
class LoadedClipStudio final : public ClipStudio
{
public:
    /// @param pluginPath the plugin's file, which may be missing
    explicit LoadedClipStudio(QString pluginPath);

    [[nodiscard]] std::expected<ClipFacts, StillFrameFailure> examine(const QString &path) const override;
    [[nodiscard]] std::expected<ClipPreview, StillFrameFailure> makePreview(const QString &path) const override;

private:
    [[nodiscard]] const ClipStudio *loaded() const;

    QString m_pluginPath;
};

}
