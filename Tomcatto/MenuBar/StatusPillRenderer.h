#pragma once

#include "MenuBar/StatusArt.h"
#include "MenuBar/StatusPalette.h"

#include <optional>

class QPainter;

namespace tomcatto {

/// Draws the pill. Main thread only.
class StatusPillRenderer final
{
public:
    /// @param art outlives the renderer.
    explicit StatusPillRenderer(const StatusArt &art);

    /// The pill at its own size, its device pixel ratio set. @param scale device pixels to a logical pixel, above 0.
    /// @return nothing if the logo is missing; the caller then shows the title as plain text.
    [[nodiscard]] std::optional<QImage> render(const StatusPillContent &content, double scale = 1) const;

    /// The colour of text, symbol and bars; text and bars fade by `inkFactor`.
    [[nodiscard]] static QColor ink(const StatusPillContent &content);
    /// Factor on the opacity of text and bars.
    [[nodiscard]] static double inkFactor(const StatusPillContent &content);
    /// The colour of the progress.
    [[nodiscard]] static QColor fill(const StatusPillContent &content);
    /// How much of the pill the progress covers, 0 to 1.
    [[nodiscard]] static double fillFraction(const StatusPillContent &content);
    /// Whether pause bars are shown.
    [[nodiscard]] static bool showsPause(const StatusPillContent &content);

private:
    void drawElements(QPainter &painter, const StatusPillContent &content, QSizeF logoSize, double scale) const;

    const StatusArt &m_art;
};

}
