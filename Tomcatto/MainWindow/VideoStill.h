#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QIODevice;

namespace tomcatto {

/// Makes the still of a video's tile: 205 × 115, cropped in its middle, with round corners.
/// @param picture readable, in any format of pictures
/// @param scale pixels of the still for one of the tile, from 1 to 2
/// @return a "data:" address with a PNG, or empty where there is no picture
[[nodiscard]] QString videoStillAddress(QIODevice &picture, double scale);

}
