#include "WidgetWindow/WidgetPainter.h"

#include "Appearance/CatDrawing.h"
#include "Appearance/DialDrawing.h"

#include <algorithm>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {

namespace {

constexpr qreal radius = 14;
constexpr qreal stripHeight = 84;
constexpr int micro = 11;
constexpr int caption = 12;
constexpr int control = 13;
constexpr int body = 14;
constexpr int figurePixels = 16;
constexpr qreal figureHeight = 22;
constexpr qreal markerSide = 15;
constexpr qreal markerGap = 3;
constexpr int mostMarkers = 6;

QString firstInstalled(const QString &family, const QString &fallback)
{
    return QFontDatabase::hasFamily(family) ? family : fallback;
}

bool isAtRest(const WidgetContent &content)
{
    return content.isOld() || content.phase == WidgetPhase::shortBreak || content.phase == WidgetPhase::longBreak;
}

}

WidgetPainter::WidgetPainter()
    : m_textFamily(
          firstInstalled(QStringLiteral("Inter"), QFontDatabase::systemFont(QFontDatabase::GeneralFont).family()))
    , m_displayFamily(firstInstalled(QStringLiteral("Inter Display"), m_textFamily))
{
    m_pause.load(QStringLiteral(":/tomcatto/symbols/pause.fill.svg"));
    m_cup.load(QStringLiteral(":/tomcatto/symbols/cup.and.saucer.fill.svg"));
    m_paw.load(QStringLiteral(":/tomcatto/symbols/pawprint.svg"));
    m_logo.load(QStringLiteral(":/tomcatto/art/logo-mono.svg"));
}

void WidgetPainter::paint(QPainter &painter, const WidgetContent &content, WidgetSize size, bool isDark, bool isRounded)
{
    m_painter = &painter;
    m_content = &content;
    m_colours = &widgetColours(isDark);
    m_extent = extent(size);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paintGround(isRounded);
    switch (size) {
    case WidgetSize::small:
        return paintSmall();
    case WidgetSize::medium:
        return paintMedium();
    case WidgetSize::large:
        return paintLarge();
    }
}

QFont WidgetPainter::font(int pixels, QFont::Weight weight) const
{
    constexpr int displayFrom = 20;
    QFont font(pixels >= displayFrom ? m_displayFamily : m_textFamily);
    font.setPixelSize(pixels);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void WidgetPainter::paintGround(bool isRounded)
{
    constexpr qreal washPart = 0.41;
    QLinearGradient ground(0, 0, 0, m_extent.height());
    ground.setColorAt(0, m_content->isOld() ? m_colours->paper : m_colours->of(*m_content).wash);
    ground.setColorAt(washPart, m_colours->paper);
    QPainterPath card;
    const qreal corner = isRounded ? radius : 0;
    card.addRoundedRect(QRectF(QPointF(), m_extent), corner, corner);
    m_painter->fillPath(card, ground);
    if (isRounded)
        m_painter->setClipPath(card);
}

void WidgetPainter::paintDial(QRectF box, qreal logo, qreal logoCentre)
{
    constexpr qreal rightEarAngle = 57;
    constexpr qreal leftEarAngle = 343;
    const WidgetColours::Phase &phase = m_colours->of(*m_content);
    DialDrawing dial;
    dial.track = m_content->isOld() ? m_colours->line : phase.track;
    dial.arc = m_content->state == WidgetState::paused ? m_colours->pausedArc : phase.solid;
    dial.disc = m_colours->card;
    dial.rest = isAtRest(*m_content) ? 1 : 0;
    dial.progress = m_content->progress.value_or(0);
    // A hair of tolerance, so that 57 of 360 counts as reached.
    const qreal angle = dial.progress * 360 + 1e-6;
    dial.rightEar = angle >= rightEarAngle ? 1 : 0;
    dial.leftEar = angle >= leftEarAngle ? 1 : 0;
    m_painter->save();
    m_painter->translate(box.center());
    dial.paint(*m_painter, box.width());
    m_painter->restore();
    if (m_content->isOld())
        m_logo.paint(*m_painter, QRectF(box.center().x() - logo / 2, logoCentre - logo / 2, logo, logo),
                     m_colours->work.track);
}

void WidgetPainter::paintLine(const QString &text, const Line &line)
{
    QFont fitting = font(line.pixels, line.weight);
    const qreal width = QFontMetricsF(fitting).horizontalAdvance(text);
    // A language with long words gets smaller letters; nothing is cut.
    if (width > line.box.width())
        fitting.setPixelSize(std::max(1, static_cast<int>(line.pixels * line.box.width() / width)));
    m_painter->setFont(fitting);
    m_painter->setPen(line.colour);
    m_painter->drawText(line.box, static_cast<int>(line.alignment | Qt::AlignVCenter | Qt::TextSingleLine), text);
}

void WidgetPainter::paintTitle(const QString &title, const Line &line)
{
    SvgArt *const symbol = m_content->state == WidgetState::paused                            ? &m_pause
                           : m_content->state == WidgetState::pending && isAtRest(*m_content) ? &m_cup
                                                                                              : nullptr;
    if (symbol == nullptr)
        return paintLine(title, line);
    const qreal side = line.pixels + 1;
    const qreal gap = 4;
    const qreal width =
        std::min(QFontMetricsF(font(line.pixels, line.weight)).horizontalAdvance(title), line.box.width() - side - gap);
    const qreal left =
        line.alignment == Qt::AlignHCenter ? line.box.center().x() - (width + side + gap) / 2 : line.box.left();
    symbol->paint(*m_painter, QRectF(left, line.box.center().y() - side / 2, side, side), line.colour);
    Line words = line;
    words.box = QRectF(left + side + gap, line.box.top(), width + 1, line.box.height());
    words.alignment = Qt::AlignLeft;
    paintLine(title, words);
}

void WidgetPainter::paintTime(QPointF centre, int pixels)
{
    constexpr qsizetype longText = 6;
    constexpr double longFactor = 0.88;
    constexpr qreal pausedOpacity = 0.6;
    const QString &text = m_content->time;
    const QFont digits = font(text.size() < longText ? pixels : qRound(pixels * longFactor), QFont::DemiBold);
    const QFontMetricsF metrics(digits);
    qreal cell = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        cell = std::max(cell, metrics.horizontalAdvance(QChar(digit)) - 1);
    const auto advance = [&](QChar letter) { return letter.isDigit() ? cell : metrics.horizontalAdvance(letter); };
    qreal width = 0;
    for (const QChar letter : text)
        width += advance(letter);
    m_painter->save();
    m_painter->setFont(digits);
    m_painter->setPen(m_colours->ink);
    m_painter->setOpacity(m_content->state == WidgetState::paused ? pausedOpacity : 1);
    qreal left = centre.x() - width / 2;
    const qreal baseline = centre.y() + (metrics.ascent() - metrics.descent()) / 2;
    for (const QChar letter : text) {
        const qreal indent = (advance(letter) - metrics.horizontalAdvance(letter)) / 2;
        m_painter->drawText(QPointF(left + indent, baseline), QString(letter));
        left += advance(letter);
    }
    m_painter->restore();
}

void WidgetPainter::paintMarkers(QRectF box, bool isCentred)
{
    const int rounds = m_content->rounds;
    const Line compact{box, figurePixels - 1, QFont::DemiBold, m_colours->ink,
                       isCentred ? Qt::AlignHCenter : Qt::AlignLeft};
    if (rounds > mostMarkers)
        return paintLine(m_content->roundCompact, compact);
    const qreal side = std::min(markerSide, (box.width() + markerGap) / rounds - markerGap);
    const qreal width = rounds * (side + markerGap) - markerGap;
    qreal left = isCentred ? box.center().x() - width / 2 : box.left();
    for (int round = 0; round < rounds; ++round, left += side + markerGap) {
        const bool isDone = round < m_content->roundsDone;
        const bool isNow = m_content->isRoundCurrent && round == m_content->roundsDone;
        const WidgetColours::Phase &work = m_colours->work;
        paintCat(*m_painter, QRectF(left, box.center().y() - side / 2, side, side),
                 isDone  ? work.solid
                 : isNow ? work.wash
                         : QColor(Qt::transparent),
                 isDone  ? QColor(Qt::transparent)
                 : isNow ? work.solid
                         : m_colours->controlLine);
    }
}

void WidgetPainter::paintFigure(const WidgetFigure &figure, QPointF place, Qt::Alignment alignment, qreal width,
                                int pixels)
{
    constexpr qreal gap = 4;
    const auto partFont = [&](const WidgetTextPart &part) {
        return font(pixels, part.isUnit ? QFont::Medium : QFont::DemiBold);
    };
    qreal whole = -gap;
    for (const WidgetTextPart &part : figure.parts)
        whole += QFontMetricsF(partFont(part)).horizontalAdvance(part.text) + gap;
    qreal left = place.x();
    if (alignment == Qt::AlignHCenter)
        left += (width - whole) / 2;
    for (const WidgetTextPart &part : figure.parts) {
        const qreal advance = QFontMetricsF(partFont(part)).horizontalAdvance(part.text);
        const bool isInk = !part.isUnit && !m_content->isOld();
        paintLine(part.text, {QRectF(left, place.y(), advance + 1, figureHeight), pixels,
                              part.isUnit ? QFont::Medium : QFont::DemiBold, isInk ? m_colours->ink : m_colours->ink2,
                              Qt::AlignLeft});
        left += advance + gap;
    }
    constexpr qreal labelHeight = 14;
    const qreal labelTop = place.y() + figureHeight + (pixels == body ? -2 : 1);
    paintLine(figure.label,
              {QRectF(place.x(), labelTop, width, labelHeight), micro, QFont::Normal, m_colours->ink2, alignment});
}

void WidgetPainter::paintStreak(QPointF place, Qt::Alignment alignment, qreal width)
{
    constexpr qreal pawSide = 14;
    constexpr qreal pawGap = 7;
    const bool isCentred = alignment == Qt::AlignHCenter;
    const qreal number =
        QFontMetricsF(font(figurePixels, QFont::DemiBold)).horizontalAdvance(m_content->streak.parts.first().text);
    const qreal left = place.x() + (isCentred ? (width - pawSide - pawGap - number) / 2 : 0);
    m_paw.paint(*m_painter, QRectF(left, place.y() + (figureHeight - pawSide) / 2, pawSide, pawSide),
                m_content->isOld() ? m_colours->controlLine : m_colours->work.solid);
    WidgetFigure count = m_content->streak;
    count.label.clear();
    paintFigure(count, {left + pawSide + pawGap, place.y()}, Qt::AlignLeft, number + 1, figurePixels);
    WidgetFigure label = m_content->streak;
    label.parts.clear();
    paintFigure(label, place, alignment, width, figurePixels);
}

void WidgetPainter::paintSmall()
{
    paintDial({14, 18, 132, 132}, 48, 74);
    const QColor colour = m_content->state == WidgetState::paused || m_content->isOld()
                              ? m_colours->ink2
                              : m_colours->of(*m_content).text;
    if (m_content->isOld())
        return paintLine(m_content->shortTitle, {{28, 101, 104, 14}, micro, QFont::DemiBold, colour});
    paintTitle(m_content->shortTitle, {{36, 51, 88, 14}, micro, QFont::DemiBold, colour});
    paintTime({80, 87}, 34);
}

void WidgetPainter::paintMedium()
{
    constexpr qreal left = 160;
    constexpr qreal width = 164;
    paintDial({16, 21, 124, 124}, 44, 83);
    if (!m_content->isOld())
        paintTime({78, 83}, 34);
    const QColor colour = m_content->isOld()                        ? m_colours->ink
                          : m_content->state == WidgetState::paused ? m_colours->ink2
                                                                    : m_colours->of(*m_content).text;
    paintTitle(m_content->title, {{left, 21, width, 18}, control, QFont::DemiBold, colour, Qt::AlignLeft});
    const QString &under = m_content->caption.isEmpty() ? m_content->hint : m_content->caption;
    paintLine(under, {{left, 42, width, 16}, caption, QFont::Normal, m_colours->ink2, Qt::AlignLeft});
    if (!m_content->hasFigures)
        return;
    if (m_content->isOld()) {
        paintLine(m_content->hint, {{left, 65, width, 14}, micro, QFont::Normal, m_colours->ink2, Qt::AlignLeft});
    } else {
        paintMarkers({left, 65, width, markerSide}, false);
        const int shown = m_content->rounds > mostMarkers ? 0 : m_content->rounds;
        const qreal label = left + (shown > 0 ? shown * (markerSide + markerGap) + 5 : 52);
        paintLine(
            m_content->roundLabel,
            {{label, 65, left + width - label, markerSide}, micro, QFont::Normal, m_colours->ink2, Qt::AlignLeft});
    }
    constexpr qreal second = 84;
    m_painter->fillRect(QRectF(left, 91, width, 1), m_colours->line);
    paintFigure(m_content->goal, {left, 101}, Qt::AlignLeft, second - 6, figurePixels);
    paintStreak({left + second, 101}, Qt::AlignLeft, width - second);
}

void WidgetPainter::paintLarge()
{
    constexpr qreal margin = 16;
    constexpr qreal width = 120;
    if (m_content->isOld()) {
        paintDial({95, 22, 150, 150}, 56, 97);
        paintLine(m_content->title, {{margin, 190, 308, 20}, body, QFont::DemiBold, m_colours->ink});
        paintLine(m_content->hint, {{margin, 211, 308, 16}, caption, QFont::Normal, m_colours->ink2});
        return paintStrip();
    }
    paintDial({76, 20, 188, 188}, 0, 0);
    const QColor colour = m_content->state == WidgetState::paused ? m_colours->ink2 : m_colours->of(*m_content).text;
    paintTitle(m_content->title, {{106, 66, 128, 18}, control, QFont::DemiBold, colour});
    paintTime({170, 115}, 48);
    paintLine(m_content->caption, {{110, 144, 120, 16}, caption, QFont::Normal, m_colours->ink2});
    paintFigure(m_content->focus, {margin, 206}, Qt::AlignLeft, width, body);
    const qreal right = m_extent.width() - margin - width;
    paintLine(m_content->nextName, {{right, 206, width, figureHeight},
                                    body,
                                    QFont::DemiBold,
                                    m_colours->of(m_content->nextPhase).text,
                                    Qt::AlignRight});
    paintLine(m_content->nextLabel, {{right, 226, width, 14}, micro, QFont::Normal, m_colours->ink2, Qt::AlignRight});
    paintStrip();
}

void WidgetPainter::paintStrip()
{
    const qreal top = m_extent.height() - stripHeight;
    m_painter->fillRect(QRectF(0, top, m_extent.width(), stripHeight), m_colours->sunk);
    m_painter->fillRect(QRectF(0, top, m_extent.width(), 1), m_colours->line);
    if (!m_content->hasFigures)
        return;
    constexpr qreal inset = 13;
    const qreal column = (m_extent.width() - 2 * inset) / 3;
    const qreal row = top + 23;
    if (m_content->isOld()) {
        paintFigure(m_content->focus, {inset, row}, Qt::AlignHCenter, column, figurePixels);
    } else {
        paintMarkers({inset + 4, row, column - 8, figureHeight}, true);
        paintFigure({{}, m_content->roundLabel}, {inset, row}, Qt::AlignHCenter, column, figurePixels);
    }
    paintFigure(m_content->goal, {inset + column, row}, Qt::AlignHCenter, column, figurePixels);
    paintStreak({inset + 2 * column, row}, Qt::AlignHCenter, column);
}

}
