#pragma once

#include <QtGui/QImage>

namespace tomcatto {

/// How alike two pictures look: the mean structural similarity of their brightness over windows of 8 × 8 pixels.
/// @return 1 for equal ones, at least -1
[[nodiscard]] double structuralSimilarity(const QImage &first, const QImage &second);

}
