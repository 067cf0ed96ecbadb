#include "BreakOverlay/FramePicture.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

/// A frame whose memory a test writes to, as a decoder gives it: the planes of a 4:2:0 picture one after the other.
struct WrittenFrame
{
    explicit WrittenFrame(QSize size)
        : memory(std::make_shared<std::vector<uint8_t>>(static_cast<size_t>(size.width()) * size.height() * 3 / 2, 128))
    {
        uint8_t *first = memory->data();
        const qsizetype pixels = qsizetype{size.width()} * size.height();
        frame.size = size;
        frame.format = AV_PIX_FMT_YUV420P;
        frame.planes = {first, first + pixels, first + pixels * 5 / 4};
        frame.strides = {size.width(), size.width() / 2, size.width() / 2};
        frame.memory = memory;
    }
    uint8_t &at(int plane, int x, int y)
    {
        return *const_cast<uint8_t *>(frame.planes.at(plane) + qsizetype{y} * frame.strides.at(plane) + x); // NOLINT
    }

    std::shared_ptr<std::vector<uint8_t>> memory;
    FilmFrame frame;
};

/// A picture with a red left quarter, a white middle and a blue right quarter.
FilmFrame stripes(QSize size)
{
    WrittenFrame written(size);
    constexpr std::array<std::array<uint8_t, 4>, 3> quarters{
        {{63, 235, 235, 32}, {102, 128, 128, 240}, {240, 128, 128, 118}}};
    for (int plane = 0; plane < 3; ++plane) {
        const QSize stored = plane == 0 ? size : size / 2;
        for (int y = 0; y < stored.height(); ++y) {
            for (int x = 0; x < stored.width(); ++x)
                written.at(plane, x, y) = quarters.at(plane).at(4 * x / stored.width());
        }
    }
    return written.frame;
}

QImage painted(FramePicture &picture, const FilmFrame &frame, QSize size)
{
    picture.setFrame(frame, size);
    QImage image(size, QImage::Format_RGB32);
    picture.paint(image.rect(), image, {});
    return image;
}

QString nameAt(const QImage &image, int x)
{
    const QColor colour = image.pixelColor(x, image.height() / 2);
    const auto part = [](int value) { return QChar(value > 200 ? u'1' : value < 60 ? u'0' : u'?'); };
    return QString() + part(colour.red()) + part(colour.green()) + part(colour.blue());
}

TEST(FramePicture, FillsAndCropsInTheRightColours)
{
    FramePicture picture;
    const FilmFrame frame = stripes({320, 180});
    const QImage same = painted(picture, frame, {320, 180});
    const QImage large = painted(picture, frame, {640, 360});
    // The sides are cut away on a narrow screen, whose width is not a whole number of blocks.
    const QImage narrow = painted(picture, frame, {150, 180});
    for (const QImage *image : {&same, &large}) {
        EXPECT_EQ(nameAt(*image, 4), u"100");
        EXPECT_EQ(nameAt(*image, image->width() / 2), u"111");
        EXPECT_EQ(nameAt(*image, image->width() - 5), u"001");
    }
    EXPECT_EQ(nameAt(narrow, 4), u"111");
    EXPECT_EQ(nameAt(narrow, 145), u"111");
}

TEST(FramePicture, IsUprightWhateverWayTheFrameLies)
{
    FramePicture picture;
    FilmFrame frame = stripes({320, 180});
    for (const auto &[angle, top] : {std::pair{90, u"100"}, {270, u"001"}}) {
        frame.angle = angle;
        const QImage tall = painted(picture, frame, {180, 320});
        EXPECT_EQ(nameAt(tall.copy(0, 0, 180, 8), 90), top);
        // A wide screen shows the middle.
        EXPECT_EQ(nameAt(painted(picture, frame, {320, 150}).copy(0, 0, 320, 8), 160), u"111");
    }
}

TEST(FramePicture, PaintsEachAreaAsPartOfTheWhole)
{
    // Odd edges, single pixels and all widths that are painted at once, of a picture that is cropped by an odd number.
    FramePicture picture;
    const QImage whole = painted(picture, stripes({2400, 100}), {2300, 100});
    QImage pieces(whole.size(), whole.format());
    for (int left = 0, width = 1; left < whole.width(); left += width, width = width * 2 + 1) {
        for (const auto &[top, height] : {std::pair{0, 1}, {1, 32}, {33, 66}, {99, 1}})
            picture.paint(QRect(left, top, width, height) & whole.rect(), pieces, {});
    }
    EXPECT_EQ(pieces, whole);
}

TEST(FramePicture, PaintingWhatChangedIsPaintingAll)
{
    // One byte of each plane in turn, in corners and across the edges of areas; at the frame's own size, cropped with
    // an odd remainder, and scaled.
    constexpr QSize stored{320, 180};
    const std::array<std::array<int, 3>, 6> bytes{
        {{0, 0, 0}, {0, 319, 179}, {0, 64, 60}, {1, 159, 89}, {2, 32, 30}, {2, 0, 89}}};
    for (const QSize size : {stored, QSize(150, 180), QSize(640, 360), QSize(200, 100)}) {
        FramePicture picture;
        FilmFrame before = stripes(stored);
        QImage kept = painted(picture, before, size);
        for (const auto &[plane, x, y] : bytes) {
            WrittenFrame next(stored);
            *next.memory = *std::static_pointer_cast<const std::vector<uint8_t>>(before.memory);
            next.at(plane, x, y) ^= 0x60;
            picture.setFrame(before = next.frame, size);
            const std::vector<QRect> changes = picture.changes();
            for (const QRect &area : changes)
                picture.paint(area, kept, {});
            FramePicture fresh;
            EXPECT_EQ(kept, painted(fresh, next.frame, size)) << size.width() << ": " << plane << ' ' << x << ' ' << y;
            EXPECT_LE(changes.size(), 4);
        }
    }
}

}
}
