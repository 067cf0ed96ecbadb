import Tomcatto.Appearance

/// One of the two smaller transport controls, half of the row.
Tile {
    width: 120
}
