#include "MenuBar/StatusMetrics.h"
#include "MenuBar/StatusPillRenderer.h"
#include "MenuBar/TrayIconRenderer.h"

#include <gtest/gtest.h>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

namespace tomcatto {
namespace {

/// The colour of the strip that the pictures are laid over, so that translucent colours can be told.
QColor bar(bool isDark)
{
    return isDark ? QColor(0x2A, 0x27, 0x29) : QColor(0xEC, 0xE9, 0xE7);
}

QColor over(const QColor &bottom, QRgb rgb, double alpha)
{
    const QColor top = QColor::fromRgb(rgb);
    const auto part = [&](int upper, int lower) {
        return static_cast<int>(std::lround(upper * alpha + lower * (1 - alpha)));
    };
    return {part(top.red(), bottom.red()), part(top.green(), bottom.green()), part(top.blue(), bottom.blue())};
}

QImage onBar(const QImage &picture, bool isDark)
{
    QImage image(picture.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(bar(isDark));
    QImage plain = picture;
    plain.setDevicePixelRatio(1);
    QPainter(&image).drawImage(0, 0, plain);
    return image;
}

bool isNear(const QColor &one, const QColor &other)
{
    return std::abs(one.red() - other.red()) <= 3 && std::abs(one.green() - other.green()) <= 3 &&
           std::abs(one.blue() - other.blue()) <= 3;
}

/// How many pixels of a region have the colour.
int count(const QImage &image, QRect region, const QColor &color)
{
    int pixels = 0;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        for (int x = region.left(); x <= region.right(); ++x)
            pixels += isNear(image.pixelColor(x, y), color);
    }
    return pixels;
}

double textWidth(const QString &text)
{
    return QFontMetricsF(StatusMetrics::textFont()).horizontalAdvance(text);
}

struct Paint
{
    QRgb rgb = 0;
    double alpha = 0;
};

struct PillCase
{
    const char *name;
    StatusPillTone tone;
    const char *title;
    /// d dark bar, p paused, b pause bars show, r break ready, i icon only.
    QLatin1String traits;
    Paint fill;
    Paint ink;

    [[nodiscard]] bool has(char trait) const { return traits.contains(QLatin1Char(trait)); }
    [[nodiscard]] StatusPillContent content() const
    {
        return {has('i') ? MenuBarStyle::iconOnly : MenuBarStyle::countdown,
                QString::fromLatin1(title),
                tone,
                0.25,
                has('p'),
                has('r'),
                has('d')};
    }
};

using Tone = StatusPillTone;
constexpr PillCase cases[] = {
    {"idle", Tone::idle, "25:00", QLatin1String(""), {}, {0x1D1D1F, 0.5}},
    {"idle paused", Tone::idle, "25:00", QLatin1String("dp"), {}, {0xF5F5F7, 0.5}},
    {"work", Tone::work, "16:12", QLatin1String(""), {0xEE7A3A, 0.32}, {0x1D1D1F, 1}},
    {"work dark", Tone::work, "16:12", QLatin1String("d"), {0xFFB780, 0.30}, {0xF5F5F7, 1}},
    {"paused", Tone::work, "16:12", QLatin1String("pb"), {0x000000, 0.10}, {0x1D1D1F, 0.6}},
    {"paused dark", Tone::work, "16:12", QLatin1String("dpb"), {0xFFFFFF, 0.10}, {0xF5F5F7, 0.6}},
    {"short break", Tone::shortBreak, "03:20", QLatin1String(""), {0x3D6FD6, 0.25}, {0x1D1D1F, 1}},
    {"long break dark", Tone::longBreak, "09:45", QLatin1String("d"), {0x9FD8B4, 0.28}, {0xF5F5F7, 1}},
    {"overtime", Tone::overtime, "+02:41", QLatin1String(""), {0xD6A01E, 0.38}, {0x8A5E00, 1}},
    {"overtime paused", Tone::overtime, "+02:41", QLatin1String("dpb"), {0xFFFFFF, 0.10}, {0xF5C451, 0.6}},
    {"ready", Tone::shortBreak, "Ready", QLatin1String("pr"), {0x3D6FD6, 1}, {0xFFFFFF, 1}},
    {"long ready dark", Tone::longBreak, "Ready", QLatin1String("dpr"), {0x9FD8B4, 1}, {0x221B18, 1}},
    {"icon only", Tone::work, "16:12", QLatin1String("i"), {0xEE7A3A, 0.32}, {}},
    {"icon only ready", Tone::shortBreak, "Ready", QLatin1String("ipr"), {0x3D6FD6, 1}, {0xFFFFFF, 1}},
};

class PillCases : public testing::TestWithParam<std::tuple<PillCase, int>>
{
protected:
    StatusArt art;
    StatusPillRenderer renderer{art};
};

TEST_P(PillCases, ShowsFillInkAndElementsAtTheirPlaces)
{
    const auto &[pill, scale] = GetParam();
    const StatusPillContent content = pill.content();
    const auto rendered = renderer.render(content, scale);
    ASSERT_TRUE(rendered);
    const bool hasText = content.style == MenuBarStyle::countdown;
    const double elements =
        (content.breakReady ? 14.5 + 4 : 0) + (pill.has('b') ? 11 : 0) + (hasText ? textWidth(content.title) + 4 : 0);
    const int width = static_cast<int>(std::ceil(18 + 20 + elements));
    EXPECT_EQ(rendered->size(), QSize(width, 24) * scale);
    EXPECT_EQ(rendered->devicePixelRatio(), scale);
    EXPECT_EQ(rendered->pixelColor(0, 0).alpha(), 0) << "round corner";

    const QImage image = onBar(*rendered, content.isDarkBar);
    const auto at = [&](double x, double y) { return image.pixelColor(int(x * scale), int(y * scale)); };
    const QColor empty =
        over(bar(content.isDarkBar), content.isDarkBar ? 0xFFFFFF : 0, content.isDarkBar ? 0.10 : 0.07);
    const QColor filled = over(empty, pill.fill.rgb, pill.fill.alpha);
    const bool isFull = content.breakReady || content.tone == StatusPillTone::overtime;
    EXPECT_TRUE(isNear(at(4, 12), filled)) << at(4, 12).name().toStdString();
    EXPECT_TRUE(isNear(at(width - 4, 12), isFull ? filled : empty)) << at(width - 4, 12).name().toStdString();
    if (!isFull && pill.fill.alpha > 0) {
        // The fill ends at its fraction of the whole width, seen along the edge above the logo.
        EXPECT_TRUE(isNear(at(0.25 * width - 1.5, 1), filled));
        EXPECT_TRUE(isNear(at(0.25 * width + 1.5, 1), empty));
    }
    // The mark keeps its own red on every fill.
    EXPECT_GT(count(image, QRect(10 * scale, 3 * scale, 18 * scale, 18 * scale), QColor(0xEE, 0x5A, 0x2E)), 3);

    const QColor ground = isFull ? filled : empty;
    double x = 28;
    if (content.breakReady) {
        EXPECT_GT(
            count(image, QRect(int((x + 4) * scale), 6 * scale, 15 * scale, 12 * scale), over(ground, pill.ink.rgb, 1)),
            30);
        x += 18.5;
    }
    if (pill.has('b')) {
        const QColor ink = over(ground, pill.ink.rgb, pill.ink.alpha);
        EXPECT_TRUE(isNear(at(x + 5, 12), ink)) << at(x + 5, 12).name().toStdString();
        EXPECT_TRUE(isNear(at(x + 4 + 4.5 + 1, 9), ink));
        EXPECT_TRUE(isNear(at(x + 7.1, 12), ground)) << "between the bars";
        EXPECT_TRUE(isNear(at(x + 5, 6.5), ground)) << "above the bars";
        x += 11;
    }
    const QRect text(int((x + 4) * scale), 0, int(width - 10 - x - 4) * scale, 24 * scale);
    if (hasText && scale > 1) {
        EXPECT_GT(count(image, text, over(ground, pill.ink.rgb, pill.ink.alpha)), 20);
    }
}

INSTANTIATE_TEST_SUITE_P(StatusPill, PillCases, testing::Combine(testing::ValuesIn(cases), testing::Values(1, 2)),
                         [](const auto &row) {
                             QString name = QString::fromLatin1(std::get<0>(row.param).name);
                             return (name.replace(u' ', u'_') + QString::number(std::get<1>(row.param))).toStdString();
                         });

TEST(StatusPillRenderer, DigitsAreEquallyWideSoThatTheItemKeepsItsLength)
{
    EXPECT_DOUBLE_EQ(textWidth(u"11:11"_qs), textWidth(u"00:00"_qs));
}

TEST(TrayIconRenderer, FillRisesFromTheBottomAndBarsSayPaused)
{
    const StatusArt art;
    const TrayIconRenderer renderer(art);
    StatusPillContent content{MenuBarStyle::countdown, {}, StatusPillTone::work, 0.25, false, false, false};
    const QColor empty = over(bar(false), 0, 0.07);
    for (const int edge : {24, 48}) {
        const int unit = edge / 24;
        content.isPaused = false;
        const QImage running = onBar(renderer.render(content, edge).value(), false);
        ASSERT_EQ(running.size(), QSize(edge, edge));
        EXPECT_TRUE(isNear(running.pixelColor(unit, 17 * unit), empty));
        EXPECT_TRUE(isNear(running.pixelColor(8 * unit, 23 * unit), over(empty, 0xEE7A3A, 0.32)));
        EXPECT_GT(count(running, QRect(0, 0, edge, edge), QColor(0xEE, 0x5A, 0x2E)), 3);
        content.isPaused = true;
        const QImage paused = onBar(renderer.render(content, edge).value(), false);
        EXPECT_TRUE(isNear(paused.pixelColor(20 * unit + unit / 2, 19 * unit), QColor(0x1D, 0x1D, 0x1F)));
        EXPECT_TRUE(isNear(paused.pixelColor(18 * unit + unit / 2, 15 * unit), bar(false)));
    }
}

}
}
