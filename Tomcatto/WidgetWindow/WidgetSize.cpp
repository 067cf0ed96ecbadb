#include "WidgetWindow/WidgetSize.h"

namespace tomcatto {

QSize extent(WidgetSize size)
{
    constexpr int side = 160;
    constexpr int longSide = 340;
    return {size == WidgetSize::small ? side : longSide, size == WidgetSize::large ? longSide : side};
}

}
