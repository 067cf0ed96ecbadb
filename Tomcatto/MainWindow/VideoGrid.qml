import QtQuick
import Tomcatto.Appearance

/// Video tiles side by side: three in wide columns, fewer where texts are large.
Grid {
    id: grid

    /// What a tile takes at least, so that the buttons on its still have room.
    readonly property real leastTile: 170 * Math.min(1.5, Theme.textScale)
    readonly property real tileWidth: (width - (columns - 1) * columnSpacing) / columns
    readonly property real stillHeight: Math.round(tileWidth * 115 / 205)

    columns: Math.max(1, Math.min(3, Math.floor((width + columnSpacing) / (leastTile + columnSpacing))))
    columnSpacing: 16.5
    rowSpacing: 16
}
