#pragma once

#include "Platform/FFmpeg/FfmpegPointers.h"

#include <optional>
#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace tomcatto {

/// Makes an MP4 of H.264 in memory out of pictures, the same bytes for the same pictures. One thread at a time.
class PreviewEncoder final
{
public:
    PreviewEncoder() = default;
    ~PreviewEncoder();
    PreviewEncoder(const PreviewEncoder &) = delete;
    PreviewEncoder &operator=(const PreviewEncoder &) = delete;

    /// Before the pictures.
    /// @param size of the clip in pixels, both even. @return whether this machine's libraries can do it
    [[nodiscard]] bool open(QSize size, int framesPerSecond);
    /// Adds a picture, which is scaled where its size is another.
    [[nodiscard]] bool add(const QImage &picture);
    /// After the last picture: the whole file.
    [[nodiscard]] std::optional<QByteArray> finish();

private:
    struct MuxerCloser
    {
        void operator()(AVFormatContext *muxer) const { avformat_free_context(muxer); }
    };

    [[nodiscard]] bool openEncoder(QSize size, int framesPerSecond);
    [[nodiscard]] bool openMuxer();
    [[nodiscard]] bool encode(const AVFrame *frame);
    [[nodiscard]] QByteArray takeBytes();

    CodecPointer m_encoder;
    std::unique_ptr<AVFormatContext, MuxerCloser> m_muxer;
    AVStream *m_stream = nullptr;
    qint64 m_count = 0;
};

}
