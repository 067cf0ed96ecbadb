#include "Platform/FFmpeg/JpegPicture.h"

#include "Platform/FFmpeg/FfmpegPointers.h"

#include <array>
#include <cmath>
#include <QtCore/QSize>

namespace tomcatto {

namespace {

using QuantizationTable = std::array<std::uint16_t, 64>;

// The tables of the JPEG standard's annex K, row by row.
constexpr QuantizationTable standardLuma{16, 11, 10, 16, 24,  40,  51,  61,  12, 12, 14, 19, 26,  58,  60,  55,
                                         14, 13, 16, 24, 40,  57,  69,  56,  14, 17, 22, 29, 51,  87,  80,  62,
                                         18, 22, 37, 56, 68,  109, 103, 77,  24, 35, 55, 64, 81,  104, 113, 92,
                                         49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98, 112, 100, 103, 99};
constexpr QuantizationTable standardChroma{17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99,
                                           24, 26, 56, 99, 99, 99, 99, 99, 47, 66, 99, 99, 99, 99, 99, 99,
                                           99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
                                           99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

// Quality 70 is 60 % of the standard's quantisation.
constexpr int quantizationPercent = 200 - 2 * 70;
// The scale at which the encoder takes the tables as they are.
constexpr int unitScale = 8;

QuantizationTable scaledTable(const QuantizationTable &table)
{
    QuantizationTable scaled{};
    for (std::size_t i = 0; i < table.size(); ++i)
        scaled.at(i) = static_cast<std::uint16_t>((table.at(i) * quantizationPercent + 50) / 100);
    return scaled;
}

FramePointer newPicture(QSize size)
{
    FramePointer picture(av_frame_alloc());
    if (!picture)
        return nullptr;
    picture->format = AV_PIX_FMT_YUVJ420P;
    picture->width = size.width();
    picture->height = size.height();
    return av_frame_get_buffer(picture.get(), 0) < 0 ? nullptr : std::move(picture);
}

QSize scaledSize(const AVFrame &frame, double pixelAspect, int maximumSide)
{
    const double width = frame.width * pixelAspect;
    const double height = frame.height;
    const double scale = qMin(1.0, maximumSide / qMax(width, height));
    const auto side = [maximumSide](double length) {
        return qBound(2, static_cast<int>(std::lround(length)), maximumSide);
    };
    return {side(width * scale), side(height * scale)};
}

FramePointer scaled(const AVFrame &frame, QSize size)
{
    const ScalerPointer scaler(sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format),
                                              size.width(), size.height(), AV_PIX_FMT_YUVJ420P, SWS_BICUBIC, nullptr,
                                              nullptr, nullptr));
    if (!scaler)
        return nullptr;
    // Files that do not say use the colours that are usual for their size.
    const bool isLarge = frame.height >= 720;
    const int colours = frame.colorspace != AVCOL_SPC_UNSPECIFIED ? int{frame.colorspace}
                        : isLarge                                 ? SWS_CS_ITU709
                                                                  : SWS_CS_ITU601;
    const bool isFullRange = frame.color_range == AVCOL_RANGE_JPEG;
    sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(colours), isFullRange ? 1 : 0,
                             sws_getCoefficients(SWS_CS_ITU601), 1, 0, 1 << 16, 1 << 16);
    FramePointer picture = newPicture(size);
    if (!picture ||
        sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, picture->data, picture->linesize) <= 0)
        return nullptr;
    return picture;
}

FramePointer turned(FramePointer picture, PictureOrientation orientation)
{
    if (orientation == PictureOrientation{})
        return picture;
    const QSize size(picture->width, picture->height);
    FramePointer result = newPicture(orientation.isTransposed ? size.transposed() : size);
    for (int plane = 0; result && plane < 3; ++plane) {
        // The two planes of colour have half the size, rounded up.
        const auto extent = [plane](int length) { return plane == 0 ? length : (length + 1) / 2; };
        const int width = extent(result->width);
        const int height = extent(result->height);
        for (int y = 0; y < height; ++y) {
            const int fromY = orientation.isMirroredInY ? height - 1 - y : y;
            for (int x = 0; x < width; ++x) {
                const int fromX = orientation.isMirroredInX ? width - 1 - x : x;
                const int row = orientation.isTransposed ? fromX : fromY;
                const int column = orientation.isTransposed ? fromY : fromX;
                result->data[plane][y * result->linesize[plane] + x] =
                    picture->data[plane][row * picture->linesize[plane] + column];
            }
        }
    }
    return result;
}

std::optional<QByteArray> encoded(AVFrame &picture)
{
    const AVCodec *const codec = avcodec_find_encoder(AV_CODEC_ID_MJPEG);
    const CodecPointer encoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!encoder)
        return std::nullopt;
    encoder->width = picture.width;
    encoder->height = picture.height;
    encoder->pix_fmt = AV_PIX_FMT_YUVJ420P;
    encoder->color_range = AVCOL_RANGE_JPEG;
    encoder->time_base = {1, 25};
    encoder->flags |= AV_CODEC_FLAG_QSCALE | AV_CODEC_FLAG_BITEXACT;
    encoder->global_quality = unitScale * FF_QP2LAMBDA;
    auto luma = scaledTable(standardLuma);
    auto chroma = scaledTable(standardChroma);
    encoder->intra_matrix = luma.data();
    encoder->chroma_intra_matrix = chroma.data();
    picture.quality = encoder->global_quality;
    picture.pts = 0;
    const PacketPointer packet(av_packet_alloc());
    const bool isEncoded = packet && avcodec_open2(encoder.get(), codec, nullptr) >= 0 &&
                           avcodec_send_frame(encoder.get(), &picture) >= 0 &&
                           avcodec_receive_packet(encoder.get(), packet.get()) >= 0;
    // Else some versions of the library would free them.
    encoder->intra_matrix = nullptr;
    encoder->chroma_intra_matrix = nullptr;
    if (!isEncoded)
        return std::nullopt;
    return QByteArray(reinterpret_cast<const char *>(packet->data), packet->size);
}

}

std::optional<QByteArray> jpegPicture(const AVFrame &frame, PictureOrientation orientation, double pixelAspect,
                                      int maximumSide)
{
    FramePointer picture = scaled(frame, scaledSize(frame, pixelAspect, maximumSide));
    if (picture)
        picture = turned(std::move(picture), orientation);
    return picture ? encoded(*picture) : std::nullopt;
}

}
