#include "WidgetWindow/WidgetSize.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

constexpr std::array sizeTexts{"small", "medium", "large"};

}

QString rawValue(WidgetSize size)
{
    return textOf(sizeTexts, size);
}

std::optional<WidgetSize> widgetSizeFromRawValue(QStringView text)
{
    return caseOf<WidgetSize>(sizeTexts, text);
}

QSize extent(WidgetSize size)
{
    constexpr int side = 160;
    constexpr int longSide = 340;
    return {size == WidgetSize::small ? side : longSide, size == WidgetSize::large ? longSide : side};
}

}
