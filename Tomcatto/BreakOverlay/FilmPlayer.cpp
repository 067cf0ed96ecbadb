#include "FilmPlayer.h"

#include "FramePicture.h"

#include <QtMultimedia/QVideoFrame>
#include <QtMultimedia/QVideoFrameFormat>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace tomcatto {
namespace {

QVideoFrameFormat::PixelFormat pixelFormat(AVPixelFormat format)
{
    switch (format) {
    case AV_PIX_FMT_YUV420P:
        return QVideoFrameFormat::Format_YUV420P;
    case AV_PIX_FMT_YUV422P:
        return QVideoFrameFormat::Format_YUV422P;
    case AV_PIX_FMT_NV12:
        return QVideoFrameFormat::Format_NV12;
    case AV_PIX_FMT_P010LE:
        return QVideoFrameFormat::Format_P010;
    case AV_PIX_FMT_BGR0:
        return QVideoFrameFormat::Format_BGRX8888;
    default:
        return QVideoFrameFormat::Format_Invalid;
    }
}

QVideoFrameFormat formatOf(const FilmFrame &frame)
{
    QVideoFrameFormat format(frame.size, pixelFormat(frame.format));
    format.setColorSpace(frame.isStandard ? QVideoFrameFormat::ColorSpace_BT601 : QVideoFrameFormat::ColorSpace_BT709);
    format.setColorRange(frame.isFullRange ? QVideoFrameFormat::ColorRange_Full : QVideoFrameFormat::ColorRange_Video);
    return format;
}

/// The frame in memory of its own.
QVideoFrame copied(const FilmFrame &frame)
{
    QVideoFrame copy(formatOf(frame));
    if (!copy.map(QVideoFrame::WriteOnly))
        return {};
    const AVPixFmtDescriptor *description = av_pix_fmt_desc_get(frame.format);
    for (int plane = 0; plane < copy.planeCount(); ++plane) {
        const int shift = plane > 0 ? description->log2_chroma_h : 0;
        const auto index = static_cast<size_t>(plane);
        av_image_copy_plane(copy.bits(plane), copy.bytesPerLine(plane), frame.planes.at(index), frame.strides.at(index),
                            av_image_get_linesize(frame.format, frame.size.width(), plane),
                            (frame.size.height() + (1 << shift) - 1) >> shift);
    }
    copy.unmap();
    // The toolkit mirrors from top to bottom.
    copy.setMirrored(frame.isMirrored);
    copy.setRotationAngle(static_cast<QVideoFrame::RotationAngle>((frame.angle + (frame.isMirrored ? 180 : 0)) % 360));
    return copy;
}

/// A frame whose format the toolkit does not draw, as a picture that it does.
FilmFrame plain(const FilmFrame &frame)
{
    if (pixelFormat(frame.format) != QVideoFrameFormat::Format_Invalid)
        return frame;
    FilmFrame upright = frame;
    upright.angle = 0;
    upright.isMirrored = false;
    FramePicture picture;
    picture.setFrame(upright, frame.size);
    const auto pixels = std::make_shared<QImage>(frame.size, QImage::Format_RGB32);
    picture.paint(pixels->rect(), *pixels, {});
    FilmFrame shown = frame;
    shown.format = AV_PIX_FMT_BGR0;
    shown.planes = {pixels->constBits()};
    shown.strides = {static_cast<int>(pixels->bytesPerLine())};
    shown.memory = pixels;
    return shown;
}

}

FilmPlayer::FilmPlayer(QObject *parent)
    : QObject(parent)
{
}

FilmPlayer::~FilmPlayer() = default;

void FilmPlayer::componentComplete()
{
    m_film = std::make_unique<RunningFilm>(m_source, m_wish);
    connect(m_film.get(), &RunningFilm::frameCame, this, &FilmPlayer::takeFrame);
    connect(m_film.get(), &RunningFilm::failed, this, &FilmPlayer::failed);
    connect(m_film.get(), &RunningFilm::soundMissing, this, &FilmPlayer::soundMissing);
}

void FilmPlayer::setMuted(bool isMuted)
{
    if (std::exchange(m_wish.isMuted, isMuted) != isMuted)
        follow();
}

void FilmPlayer::setStill(bool isStill)
{
    if (std::exchange(m_wish.isStill, isStill) != isStill)
        follow();
}

void FilmPlayer::setSink(QVideoSink *sink)
{
    if (m_sink == sink)
        return;
    m_sink = sink;
    Q_EMIT sinkChanged();
}

void FilmPlayer::follow()
{
    if (m_film)
        m_film->setWish(m_wish);
    Q_EMIT wishChanged();
}

void FilmPlayer::takeFrame(const FilmFrame &frame)
{
    const bool isFirst = !hasFrame();
    m_frame = frame;
    if (m_sink)
        m_sink->setVideoFrame(copied(plain(m_frame)));
    Q_EMIT frameChanged();
    if (isFirst)
        Q_EMIT hasFrameChanged();
}

}
