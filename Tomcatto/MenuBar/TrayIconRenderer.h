#pragma once

#include "MenuBar/StatusPillRenderer.h"

namespace tomcatto {

/// Draws what the pill says into a square, for bars that give no more room: the fill rises from the bottom, the mark
/// stands over it, bars in a disc say paused. Main thread only.
class TrayIconRenderer final
{
public:
    /// @param art outlives the renderer.
    explicit TrayIconRenderer(const StatusArt &art);

    /// @param edge of the square in device pixels, above 0. @return nothing if the logo is missing.
    [[nodiscard]] std::optional<QImage> render(const StatusPillContent &content, int edge) const;

private:
    const StatusArt &m_art;
};

}
