#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace tomcatto {

struct FormatCloser
{
    void operator()(AVFormatContext *format) const { avformat_close_input(&format); }
};
struct CodecFreer
{
    void operator()(AVCodecContext *codec) const { avcodec_free_context(&codec); }
};
struct FrameFreer
{
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
};
struct PacketFreer
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};
struct ScalerFreer
{
    void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
};

using FormatPointer = std::unique_ptr<AVFormatContext, FormatCloser>;
using CodecPointer = std::unique_ptr<AVCodecContext, CodecFreer>;
using FramePointer = std::unique_ptr<AVFrame, FrameFreer>;
using PacketPointer = std::unique_ptr<AVPacket, PacketFreer>;
using ScalerPointer = std::unique_ptr<SwsContext, ScalerFreer>;

}
