#include "Media/VideoFileValidator.h"
#include "Platform/FFmpeg/FfmpegStillFrame.h"
#include "Platform/FFmpeg/TimeLimit.h"
#include "Platform/Qt/LoadedStillFrame.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <sys/stat.h>

namespace tomcatto {

namespace {

constexpr StillFrameRequest thumbnail{0.5, 480};

class StillFrameTest : public testing::Test
{
protected:
    [[nodiscard]] QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    /// Runs the ffmpeg command in the test's folder. A child of QProcess shares our memory until it runs, after which
    /// the thread sanitizer believes that this thread takes no lock.
    void ffmpeg(const char *arguments) const
    {
        const QString command = QStringLiteral("cd '%1' && ffmpeg -nostdin -v error -y %2");
        ASSERT_EQ(std::system(qPrintable(command.arg(m_folder.path(), QString::fromLatin1(arguments)))), 0)
            << arguments;
    }
    void write(const char *name, const QByteArray &content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QByteArray bytes(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QImage picture(const char *name) const
    {
        const auto look = m_frames.look(path(name), thumbnail, {});
        return look && look->picture ? QImage::fromData(*look->picture, "JPEG") : QImage();
    }

    QTemporaryDir m_folder;
    FfmpegStillFrame m_frames;
};

/// The mean difference of two pictures of one size, 0 to 255.
double difference(const QImage &left, const QImage &right)
{
    double sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            sum += std::abs(qGray(left.pixel(x, y)) - qGray(right.pixel(x, y)));
    }
    return sum / (left.width() * left.height());
}

}

TEST_F(StillFrameTest, PicturesAreSmallAndUpright)
{
    ffmpeg("-f lavfi -i testsrc=size=1280x718:rate=10:duration=1 -pix_fmt yuv420p wide.mp4");
    ffmpeg("-f lavfi -i testsrc=size=321x240:rate=10:duration=1 -c:v mpeg4 -q:v 2 -vf setsar=2/1 squeezed.avi");
    ffmpeg("-f lavfi -i testsrc=size=200x100:rate=10:duration=1 -c:v libvpx-vp9 -b:v 1M small.webm");
    ffmpeg("-i wide.mp4 -c copy -metadata:s:v:0 rotate=90 quarter.mp4");
    ffmpeg("-i wide.mp4 -c copy -metadata:s:v:0 rotate=180 half.mp4");
    ffmpeg("-i wide.mp4 -c copy -metadata:s:v:0 rotate=270 threequarter.mp4");
    const std::vector<std::pair<const char *, QSize>> cases{
        {"wide.mp4", {480, 269}},    {"squeezed.avi", {480, 179}}, {"small.webm", {200, 100}},
        {"quarter.mp4", {269, 480}}, {"half.mp4", {480, 269}},     {"threequarter.mp4", {269, 480}}};
    for (const auto &[name, size] : cases) {
        SCOPED_TRACE(name);
        const QImage image = picture(name);
        ASSERT_EQ(image.size(), size);
        // The command's own picture of that moment, which it turns by itself.
        ffmpeg(qPrintable(QStringLiteral("-i %1 -ss 0.5 -frames:v 1 -vf scale=%2:%3 expected.png")
                              .arg(QString::fromLatin1(name))
                              .arg(size.width())
                              .arg(size.height())));
        EXPECT_LT(difference(image, QImage(path("expected.png"))), 6);
    }
}

TEST_F(StillFrameTest, ThePictureIsTheOneShownAtHalfASecond)
{
    ffmpeg(
        "-f lavfi -i color=red:size=64x64:rate=10:duration=0.5 -f lavfi -i color=lime:size=64x64:rate=10:duration=0.1"
        " -f lavfi -i color=blue:size=64x64:rate=10:duration=1 -filter_complex concat=n=3 colours.mp4");
    ffmpeg("-f lavfi -i color=lime:size=64x64:rate=1:duration=3 slow.mp4");
    for (const char *name : {"colours.mp4", "slow.mp4"}) {
        const QColor colour = picture(name).pixelColor(32, 32);
        EXPECT_GT(colour.green(), 200) << name;
        EXPECT_LT(colour.red() + colour.blue(), 100) << name;
    }
    ffmpeg("-f lavfi -i color=lime:size=64x64:rate=10:duration=0.4 short.mp4");
    const auto shortLook = m_frames.look(path("short.mp4"), thumbnail, {}).value();
    EXPECT_EQ(shortLook.picture, std::unexpected(StillFrameFailure::noFrame));
    EXPECT_NEAR(shortLook.durationSeconds, 0.4, 0.01);
}

TEST_F(StillFrameTest, WhatIsNoVideoIsToldApart)
{
    ffmpeg("-f lavfi -i testsrc=size=320x240:rate=10:duration=3 -pix_fmt yuv420p clip.mp4");
    ffmpeg("-i clip.mp4 -c copy -movflags +faststart fast.mp4");
    ffmpeg("-f lavfi -i sine=duration=1 -c:a aac sound.mp4");
    ffmpeg("-f lavfi -i color=red:size=64x64 -frames:v 1 cover.png");
    ffmpeg("-i sound.mp4 -i cover.png -map 0 -map 1 -c:a copy -c:v png -disposition:v:0 attached_pic cover.m4a");
    ASSERT_TRUE(QFile::copy(path("cover.png"), path("picture.mp4")));
    const QByteArray clip = bytes("clip.mp4");
    write("half.mp4", clip.first(clip.size() / 2));
    write("start.mp4", bytes("fast.mp4").first(clip.size() * 8 / 10));
    write("text.mp4", QByteArray("This is no video.\n").repeated(1'000));
    write("list.mp4", "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\nfile://" + QFile::encodeName(path("clip.mp4")) +
                          "\n#EXT-X-ENDLIST\n");
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe.mp4")).constData(), 0600), 0);
    const VideoFileValidator validator(m_frames);
    const std::vector<std::pair<const char *, VideoFileError>> cases{
        {"sound.mp4", VideoFileError::noPicture},  {"cover.m4a", VideoFileError::noPicture},
        {"half.mp4", VideoFileError::noContainer}, {"picture.mp4", VideoFileError::noContainer},
        {"text.mp4", VideoFileError::noContainer}, {"list.mp4", VideoFileError::noContainer},
    };
    for (const auto &[name, error] : cases)
        EXPECT_EQ(validator.validate(path(name), {}), std::unexpected(error)) << name;
    // Its beginning is all there.
    EXPECT_TRUE(validator.validate(path("start.mp4"), {}));
    EXPECT_FALSE(picture("start.mp4").isNull());
    EXPECT_EQ(m_frames.look(path("pipe.mp4"), thumbnail, {}), std::unexpected(StillFrameFailure::unreadable));
}

TEST_F(StillFrameTest, DamagedFilesEndInAnAnswer)
{
    ffmpeg("-f lavfi -i testsrc=size=320x240:rate=10:duration=1 -pix_fmt yuv420p -movflags +faststart clip.mp4");
    const QByteArray clip = bytes("clip.mp4");
    std::uint32_t state = 1;
    for (int round = 0; round < 40; ++round) {
        QByteArray damaged = clip;
        for (int i = 0; i < 20; ++i) {
            state = state * 1'664'525U + 1'013'904'223U;
            damaged[static_cast<qsizetype>(state % static_cast<std::uint32_t>(clip.size()))] =
                static_cast<char>(state >> 24);
        }
        write("damaged.mp4", damaged);
        const auto look = m_frames.look(path("damaged.mp4"), thumbnail, {});
        EXPECT_TRUE(!look || !look->picture || look->picture->startsWith("\xFF\xD8")) << round;
    }
}

TEST_F(StillFrameTest, WorkThatIsStuckIsLeftBehind)
{
    const auto isReleased = std::make_shared<std::atomic<bool>>(false);
    const auto stuck = [isReleased](const TimeLimit &) -> std::expected<double, StillFrameFailure> {
        isReleased->wait(false);
        return 1.0;
    };
    std::stop_source stop;
    stop.request_stop();
    const std::expected<double, StillFrameFailure> timedOut = std::unexpected(StillFrameFailure::timedOut);
    EXPECT_EQ(withinTimeLimit<double>(std::chrono::milliseconds{20}, {}, stuck), timedOut);
    EXPECT_EQ(withinTimeLimit<double>(std::chrono::minutes{10}, stop.get_token(), stuck), timedOut);
    *isReleased = true;
    isReleased->notify_all();
}

TEST_F(StillFrameTest, ThePluginGivesTheSameAsTheLibraries)
{
    ffmpeg("-f lavfi -i testsrc=size=320x240:rate=10:duration=1 -pix_fmt yuv420p clip.mp4");
    const LoadedStillFrame loaded(LoadedStillFrame::pluginPath(QStringLiteral(TOMCATTO_PROGRAM_FOLDER)));
    EXPECT_EQ(loaded.look(path("clip.mp4"), thumbnail, {}).value().durationSeconds, 1.0);
    EXPECT_EQ(loaded.look(path("clip.mp4"), thumbnail, {}), m_frames.look(path("clip.mp4"), thumbnail, {}));
}

}
