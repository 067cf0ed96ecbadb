#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtGui/QImage>
#include <QtGui/QTransform>

struct AVFrame;

namespace tomcatto {

/// A decoded picture, turned upright and made small enough, never larger.
/// @param pixelAspect width of a stored pixel over its height
/// @param maximumSide the larger of width and height in pixels, at most; at least 2
/// @return nothing if the picture's format cannot be converted
[[nodiscard]] std::optional<QImage> uprightPicture(const AVFrame &frame, const QTransform &orientation,
                                                   double pixelAspect, int maximumSide);
/// Makes a JPEG of quality 70 out of it.
[[nodiscard]] std::optional<QByteArray> jpegPicture(const QImage &picture);

}
