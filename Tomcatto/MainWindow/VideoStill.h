#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QIODevice;

namespace tomcatto {

/// Makes the still of a video's tile: 205 × 115 in twice the pixels, cropped in its middle, with round corners.
/// @param picture readable, in any format of pictures
/// @return a "data:" address with a PNG, or empty where there is no picture
[[nodiscard]] QString videoStillAddress(QIODevice &picture);

}
