#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtGui/QTransform>

struct AVFrame;

namespace tomcatto {

/// Makes a JPEG of quality 70 out of a decoded picture, turned upright and made small enough, never larger.
/// @param pixelAspect width of a stored pixel over its height
/// @param maximumSide the larger of width and height in pixels, at most; at least 2
/// @return nothing if the picture's format cannot be converted
[[nodiscard]] std::optional<QByteArray> jpegPicture(const AVFrame &frame, const QTransform &orientation,
                                                    double pixelAspect, int maximumSide);

}
