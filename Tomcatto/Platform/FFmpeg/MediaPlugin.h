#pragma once

#include "Platform/FFmpeg/FfmpegClipStudio.h"
#include "Platform/FFmpeg/FfmpegStillFrame.h"

#include <QtCore/QObject>

namespace tomcatto {

/// What the plugin "tomcatto-media" hands out. It keeps the video libraries out of processes that never look into a
/// video.
class MediaPlugin final : public QObject, public FfmpegStillFrame, public FfmpegClipStudio
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "studio.quillbay.Tomcatto.StillFrame/1")
    Q_INTERFACES(tomcatto::StillFrame tomcatto::ClipStudio)
};

}
