#include "MenuBar/PopoverPlacement.h"

#include <algorithm>

namespace tomcatto {
namespace {

constexpr int screenMargin = 8;
constexpr int itemGap = 4;

int kept(int position, int length, int low, int high)
{
    return std::max(low + screenMargin, std::min(position, high - screenMargin - length));
}

}

QRect popoverRectangle(QSize size, std::optional<QRect> item, QRect available)
{
    const int right = available.x() + available.width();
    const int bottom = available.y() + available.height();
    const int anchorX = item ? item->x() + item->width() / 2 : available.x() + available.width() / 2;
    int y = available.y() + screenMargin;
    if (item) {
        const int anchorY = item->y() + item->height() / 2;
        const bool isBelow = anchorY < available.y() + available.height() / 2;
        y = isBelow ? item->y() + item->height() + itemGap : item->y() - itemGap - size.height();
    }
    return {QPoint(kept(anchorX - size.width() / 2, size.width(), available.x(), right),
                   kept(y, size.height(), available.y(), bottom)),
            size};
}

QRect menuRectangle(QSize size, QPoint place, QRect available)
{
    const auto start = [](int position, int length, int low, int high) {
        const int wanted = position + length > high ? position - length : position;
        return std::max(low, std::min(wanted, high - length));
    };
    return {QPoint(start(place.x(), size.width(), available.x(), available.x() + available.width()),
                   start(place.y(), size.height(), available.y(), available.y() + available.height())),
            size};
}

}
