#include "Platform/FFmpeg/PreviewEncoder.h"

#include <array>

extern "C" {
#include <libavutil/opt.h>
}

namespace tomcatto {

PreviewEncoder::~PreviewEncoder()
{
    static_cast<void>(takeBytes());
}

bool PreviewEncoder::open(QSize size, int framesPerSecond)
{
    return openEncoder(size, framesPerSecond) && openMuxer();
}

bool PreviewEncoder::openEncoder(QSize size, int framesPerSecond)
{
    const AVCodec *const codec = avcodec_find_encoder_by_name("libx264");
    m_encoder.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!m_encoder)
        return false;
    m_encoder->width = size.width();
    m_encoder->height = size.height();
    m_encoder->pix_fmt = AV_PIX_FMT_YUV420P;
    m_encoder->time_base = {1, framesPerSecond};
    m_encoder->framerate = {framesPerSecond, 1};
    m_encoder->colorspace = AVCOL_SPC_SMPTE170M;
    m_encoder->color_range = AVCOL_RANGE_MPEG;
    // In the file's head, as its format wants it. Several threads would make other bytes on another machine.
    m_encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    m_encoder->thread_count = 1;
    return av_opt_set(m_encoder->priv_data, "preset", "slow", 0) >= 0 &&
           av_opt_set(m_encoder->priv_data, "crf", "27", 0) >= 0 && avcodec_open2(m_encoder.get(), codec, nullptr) >= 0;
}

bool PreviewEncoder::openMuxer()
{
    AVFormatContext *muxer = nullptr;
    if (avformat_alloc_output_context2(&muxer, nullptr, "mp4", nullptr) < 0)
        return false;
    m_muxer.reset(muxer);
    m_muxer->flags |= AVFMT_FLAG_BITEXACT;
    m_stream = avformat_new_stream(muxer, nullptr);
    if (!m_stream || avcodec_parameters_from_context(m_stream->codecpar, m_encoder.get()) < 0)
        return false;
    m_stream->time_base = m_encoder->time_base;
    m_stream->avg_frame_rate = m_encoder->framerate;
    return avio_open_dyn_buf(&muxer->pb) >= 0 && avformat_write_header(muxer, nullptr) >= 0;
}

bool PreviewEncoder::add(const QImage &picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    const ScalerPointer scaler(sws_getContext(source.width(), source.height(), AV_PIX_FMT_RGB32, m_encoder->width,
                                              m_encoder->height, m_encoder->pix_fmt, SWS_BICUBIC, nullptr, nullptr,
                                              nullptr));
    const FramePointer frame(av_frame_alloc());
    if (!scaler || !frame)
        return false;
    frame->format = m_encoder->pix_fmt;
    frame->width = m_encoder->width;
    frame->height = m_encoder->height;
    frame->pts = m_count++;
    const std::array<const uchar *, 4> planes{source.constBits(), nullptr, nullptr, nullptr};
    const std::array<int, 4> strides{static_cast<int>(source.bytesPerLine()), 0, 0, 0};
    return av_frame_get_buffer(frame.get(), 0) >= 0 &&
           sws_scale(scaler.get(), planes.data(), strides.data(), 0, source.height(), frame->data, frame->linesize) >
               0 &&
           encode(frame.get());
}

bool PreviewEncoder::encode(const AVFrame *frame)
{
    const PacketPointer packet(av_packet_alloc());
    if (!packet || avcodec_send_frame(m_encoder.get(), frame) < 0)
        return false;
    while (true) {
        const int status = avcodec_receive_packet(m_encoder.get(), packet.get());
        if (status < 0)
            return status == AVERROR(EAGAIN) || status == AVERROR_EOF;
        // One frame long each, or the last one would have no length.
        packet->duration = 1;
        packet->stream_index = m_stream->index;
        av_packet_rescale_ts(packet.get(), m_encoder->time_base, m_stream->time_base);
        if (av_interleaved_write_frame(m_muxer.get(), packet.get()) < 0)
            return false;
    }
}

std::optional<QByteArray> PreviewEncoder::finish()
{
    if (m_count == 0 || !encode(nullptr) || av_write_trailer(m_muxer.get()) < 0)
        return std::nullopt;
    return takeBytes();
}

QByteArray PreviewEncoder::takeBytes()
{
    if (!m_muxer || !m_muxer->pb)
        return {};
    uint8_t *bytes = nullptr;
    const int size = avio_close_dyn_buf(m_muxer->pb, &bytes);
    m_muxer->pb = nullptr;
    QByteArray copy(reinterpret_cast<const char *>(bytes), size); // NOLINT: bytes are bytes
    av_free(bytes);
    return copy;
}

}
