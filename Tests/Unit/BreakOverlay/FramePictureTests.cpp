#include "BreakOverlay/FramePicture.h"

#include <gtest/gtest.h>
#include <QtMultimedia/QVideoFrameFormat>

namespace tomcatto {
namespace {

/// A picture with a red left quarter, a white middle and a blue right quarter, as a decoder gives it.
QVideoFrame stripes(QSize size)
{
    QVideoFrameFormat format(size, QVideoFrameFormat::Format_YUV420P);
    format.setColorSpace(QVideoFrameFormat::ColorSpace_BT709);
    QVideoFrame frame(format);
    EXPECT_TRUE(frame.map(QVideoFrame::WriteOnly));
    constexpr std::array<std::array<uchar, 4>, 3> quarters{
        {{63, 235, 235, 32}, {102, 128, 128, 240}, {240, 128, 128, 118}}};
    for (int plane = 0; plane < 3; ++plane) {
        const QSize stored = plane == 0 ? size : size / 2;
        for (int y = 0; y < stored.height(); ++y) {
            for (int x = 0; x < stored.width(); ++x)
                frame.bits(plane)[y * frame.bytesPerLine(plane) + x] = quarters[plane][4 * x / stored.width()];
        }
    }
    frame.unmap();
    return frame;
}

QString nameAt(const QImage &image, int x)
{
    const QColor colour = image.pixelColor(x, image.height() / 2);
    const auto part = [](int value) { return QChar(value > 200 ? u'1' : value < 60 ? u'0' : u'?'); };
    return QString() + part(colour.red()) + part(colour.green()) + part(colour.blue());
}

TEST(FramePicture, FillsAndCropsInTheRightColours)
{
    FramePicture pictures;
    const QVideoFrame frame = stripes({320, 180});
    const QImage same = pictures.picture(frame, {320, 180});
    const QImage large = pictures.picture(frame, {640, 360});
    // The sides are cut away on a narrow screen, whose width is no whole number of blocks.
    const QImage narrow = pictures.picture(frame, {150, 180});
    for (const QImage *image : {&same, &large}) {
        EXPECT_EQ(nameAt(*image, 4), u"100");
        EXPECT_EQ(nameAt(*image, image->width() / 2), u"111");
        EXPECT_EQ(nameAt(*image, image->width() - 5), u"001");
    }
    EXPECT_EQ(nameAt(narrow, 4), u"111");
    EXPECT_EQ(nameAt(narrow, 145), u"111");
    EXPECT_TRUE(pictures.picture(QVideoFrame(), {64, 36}).isNull());
}

TEST(FramePicture, IsUprightWhateverWayTheFrameLies)
{
    FramePicture pictures;
    QVideoFrame frame = stripes({320, 180});
    for (const auto &[angle, top] : {std::pair{QVideoFrame::Rotation90, u"100"}, {QVideoFrame::Rotation270, u"001"}}) {
        frame.setRotationAngle(angle);
        const QImage tall = pictures.picture(frame, {180, 320});
        EXPECT_EQ(tall.size(), QSize(180, 320));
        EXPECT_EQ(nameAt(tall.copy(0, 0, 180, 8), 90), top);
        // A wide screen shows the middle.
        EXPECT_EQ(nameAt(pictures.picture(frame, {320, 150}).copy(0, 0, 320, 8), 160), u"111");
    }
}

}
}
