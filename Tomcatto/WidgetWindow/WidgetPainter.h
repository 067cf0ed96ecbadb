#pragma once

#include "Appearance/SvgArt.h"
#include "WidgetWindow/WidgetColours.h"
#include "WidgetWindow/WidgetSize.h"

#include <QtGui/QFont>

namespace tomcatto {

/// Draws a widget's content in one of its sizes. Main thread only.
class WidgetPainter final
{
public:
    WidgetPainter();

    /// @param isRounded whether the corners are left out; they are part of the area otherwise
    void paint(QPainter &painter, const WidgetContent &content, WidgetSize size, bool isDark, bool isRounded);

private:
    struct Line
    {
        QRectF box;
        int pixels;
        QFont::Weight weight;
        QColor colour;
        Qt::Alignment alignment = Qt::AlignHCenter;
    };

    void paintSmall();
    void paintMedium();
    void paintLarge();
    void paintGround(bool isRounded);
    void paintDial(QRectF box, qreal logo, qreal logoCentre);
    void paintTitle(const QString &title, const Line &line);
    void paintTime(QPointF centre, int pixels);
    void paintMarkers(QRectF box, bool isCentred);
    void paintFigure(const WidgetFigure &figure, QPointF place, Qt::Alignment alignment, qreal width, int pixels);
    void paintStreak(QPointF place, Qt::Alignment alignment, qreal width);
    void paintStrip();
    void paintLine(const QString &text, const Line &line);
    [[nodiscard]] QFont font(int pixels, QFont::Weight weight) const;

    QString m_textFamily;
    QString m_displayFamily;
    SvgArt m_pause, m_cup, m_paw, m_logo;
    // While it paints.
    QPainter *m_painter = nullptr;
    const WidgetContent *m_content = nullptr;
    const WidgetColours *m_colours = nullptr;
    QSize m_extent;
};

}
