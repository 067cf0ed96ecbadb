#include "Platform/FFmpeg/UprightPicture.h"

#include "Platform/FFmpeg/FfmpegPointers.h"

#include <cmath>
#include <QtCore/QBuffer>

namespace tomcatto {

namespace {

constexpr int jpegQuality = 70;

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
                                              size.width(), size.height(), AV_PIX_FMT_RGB32, SWS_BICUBIC, nullptr,
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
    FramePointer picture(av_frame_alloc());
    if (!picture)
        return nullptr;
    picture->format = AV_PIX_FMT_RGB32;
    picture->width = size.width();
    picture->height = size.height();
    if (av_frame_get_buffer(picture.get(), 0) < 0 ||
        sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, picture->data, picture->linesize) <= 0)
        return nullptr;
    return picture;
}

}

std::optional<QImage> uprightPicture(const AVFrame &frame, const QTransform &orientation, double pixelAspect,
                                     int maximumSide)
{
    const FramePointer picture = scaled(frame, scaledSize(frame, pixelAspect, maximumSide));
    if (!picture)
        return std::nullopt;
    const QImage stored(picture->data[0], picture->width, picture->height, picture->linesize[0], QImage::Format_RGB32);
    const QImage upright = stored.transformed(orientation);
    // One that is not turned lies in the frame.
    return upright.constBits() == stored.constBits() ? upright.copy() : upright;
}

std::optional<QByteArray> jpegPicture(const QImage &picture)
{
    QByteArray data;
    QBuffer buffer(&data);
    return picture.save(&buffer, "JPEG", jpegQuality) ? std::optional(std::move(data)) : std::nullopt;
}

}
