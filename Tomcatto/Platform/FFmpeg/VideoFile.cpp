#include "Platform/FFmpeg/VideoFile.h"

#include "Platform/FFmpeg/TimeLimit.h"
#include "Platform/FFmpeg/UprightPicture.h"

#include <array>
#include <cmath>
#include <cstring>
#include <QtCore/QFile>

namespace tomcatto {

namespace {

// The formats of video files. FFmpeg knows many more, among them play lists that lead to other files, plain text and
// single pictures.
constexpr const char *containerFormats =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,mpegts,mpeg,mpegvideo,ogg,flv,asf,ivf,h264,hevc,obu,dv,mxf,nut,rm";

// 8192 × 8192: twice the pixels of the largest common video. A damaged file may claim any size.
constexpr qint64 mostPixels = qint64{8'192} * 8'192;

constexpr double lastFrameSeconds = 1.0 / 24;

struct DictionaryFreer
{
    void operator()(AVDictionary *dictionary) const { av_dict_free(&dictionary); }
};

int interrupt(void *limit)
{
    return static_cast<const TimeLimit *>(limit)->isOver() ? 1 : 0;
}

}

VideoFile::VideoFile(const TimeLimit &limit)
    : m_limit(limit)
{
}

std::expected<void, StillFrameFailure> VideoFile::open(const QString &path)
{
    if (const auto opened = openContainer(path); !opened)
        return opened;
    return openDecoder();
}

std::expected<void, StillFrameFailure> VideoFile::openContainer(const QString &path)
{
    AVFormatContext *format = avformat_alloc_context();
    if (!format)
        return std::unexpected(StillFrameFailure::unreadable);
    format->interrupt_callback = {interrupt,
                                  const_cast<TimeLimit *>(&m_limit)}; // NOLINT: FFmpeg hands it back as it is
    AVDictionary *options = nullptr;
    av_dict_set(&options, "format_whitelist", containerFormats, 0);
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    const QByteArray url = "file:" + QFile::encodeName(path);
    // Frees the context where it fails.
    const int status = avformat_open_input(&format, url.constData(), nullptr, &options);
    const std::unique_ptr<AVDictionary, DictionaryFreer> unusedOptions(options);
    if (status < 0) {
        const bool isForbidden = status == AVERROR(EACCES) || status == AVERROR(EPERM) || status == AVERROR(ENOENT) ||
                                 status == AVERROR(EIO);
        return std::unexpected(failure(isForbidden ? StillFrameFailure::unreadable : StillFrameFailure::noContainer));
    }
    m_format.reset(format);
    if (avformat_find_stream_info(format, nullptr) < 0)
        return std::unexpected(failure(StillFrameFailure::noContainer));
    return {};
}

std::expected<void, StillFrameFailure> VideoFile::openDecoder()
{
    const AVCodec *codec = nullptr;
    const int index = av_find_best_stream(m_format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
    if (index < 0 || !codec)
        return std::unexpected(failure(StillFrameFailure::noPicture));
    m_stream = m_format->streams[index];
    // The cover of a piece of music is not a video.
    const bool isCover = (m_stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    if (isCover || m_stream->codecpar->width <= 0 || m_stream->codecpar->height <= 0)
        return std::unexpected(failure(StillFrameFailure::noPicture));
    m_decoder.reset(avcodec_alloc_context3(codec));
    if (!m_decoder || avcodec_parameters_to_context(m_decoder.get(), m_stream->codecpar) < 0)
        return std::unexpected(StillFrameFailure::noPicture);
    m_decoder->max_pixels = mostPixels;
    m_decoder->pkt_timebase = m_stream->time_base;
    if (avcodec_open2(m_decoder.get(), codec, nullptr) < 0)
        return std::unexpected(StillFrameFailure::noPicture);
    return {};
}

double VideoFile::durationSeconds() const
{
    if (m_format->duration > 0)
        return static_cast<double>(m_format->duration) / AV_TIME_BASE;
    if (m_stream->duration > 0)
        return static_cast<double>(m_stream->duration) * av_q2d(m_stream->time_base);
    return 0;
}

QString VideoFile::codecName() const
{
    return QString::fromLatin1(avcodec_get_name(m_stream->codecpar->codec_id));
}

double VideoFile::framesPerSecond() const
{
    const AVRational rate = av_guess_frame_rate(m_format.get(), m_stream, nullptr);
    return rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0;
}

std::expected<FramePointer, StillFrameFailure> VideoFile::nextFrame()
{
    FramePointer decoded(av_frame_alloc());
    while (decoded && !m_limit.isOver()) {
        const int status = avcodec_receive_frame(m_decoder.get(), decoded.get());
        if (status == AVERROR(EAGAIN) && sendNextPacket())
            continue;
        if (status < 0)
            break;
        return decoded;
    }
    return std::unexpected(failure(StillFrameFailure::noFrame));
}

double VideoFile::endOf(const AVFrame &frame) const
{
    const double length = static_cast<double>(frame.pkt_duration) * av_q2d(m_stream->time_base);
    return qMax(startOf(frame), 0.0) + (length > 0 ? length : lastFrameSeconds);
}

std::expected<FramePointer, StillFrameFailure> VideoFile::frameAt(double seconds)
{
    FramePointer shown;
    while (true) {
        auto next = nextFrame();
        if (!next)
            return next;
        if (shown && startOf(**next) > seconds)
            return shown;
        shown = std::move(*next);
        if (endOf(*shown) > seconds)
            return shown;
    }
}

std::optional<QImage> VideoFile::upright(AVFrame &frame, int maximumSide) const
{
    return uprightPicture(frame, orientation(), pixelAspect(frame), maximumSide);
}

// Hands the decoder the next packet of the picture, at the end of the file the order to give out what it still has.
bool VideoFile::sendNextPacket()
{
    if (m_isDrained)
        return false;
    const PacketPointer packet(av_packet_alloc());
    if (!packet)
        return false;
    while (!m_limit.isOver() && av_read_frame(m_format.get(), packet.get()) >= 0) {
        const bool isPicture = packet->stream_index == m_stream->index;
        // A damaged packet is skipped, the next one may do.
        if (isPicture && avcodec_send_packet(m_decoder.get(), packet.get()) >= 0)
            return true;
        av_packet_unref(packet.get());
    }
    m_isDrained = true;
    return avcodec_send_packet(m_decoder.get(), nullptr) >= 0;
}

double VideoFile::startOf(const AVFrame &frame) const
{
    const qint64 timestamp = frame.best_effort_timestamp;
    if (timestamp == AV_NOPTS_VALUE)
        return 0;
    const qint64 start = m_stream->start_time == AV_NOPTS_VALUE ? 0 : m_stream->start_time;
    return static_cast<double>(timestamp - start) * av_q2d(m_stream->time_base);
}

QTransform VideoFile::orientation() const
{
    const auto *const matrix = av_stream_get_side_data(m_stream, AV_PKT_DATA_DISPLAYMATRIX, nullptr);
    std::array<std::int32_t, 9> values{};
    if (!matrix)
        return {};
    std::memcpy(values.data(), matrix, sizeof values);
    // A stored point (x, y) is shown at (a x + c y, b x + d y).
    const auto [a, b, c, d] = std::array<double, 4>{1.0 * values[0], 1.0 * values[1], 1.0 * values[3], 1.0 * values[4]};
    const auto sign = [](double value) { return value < 0 ? -1.0 : 1.0; };
    if (std::abs(a) + std::abs(d) >= std::abs(b) + std::abs(c))
        return {sign(a), 0, 0, sign(d), 0, 0};
    return {0, sign(b), sign(c), 0, 0, 0};
}

double VideoFile::pixelAspect(AVFrame &frame) const
{
    const AVRational ratio = av_guess_sample_aspect_ratio(m_format.get(), m_stream, &frame);
    return ratio.num > 0 && ratio.den > 0 ? av_q2d(ratio) : 1.0;
}

StillFrameFailure VideoFile::failure(StillFrameFailure otherwise) const
{
    return m_limit.isOver() ? StillFrameFailure::timedOut : otherwise;
}

}
