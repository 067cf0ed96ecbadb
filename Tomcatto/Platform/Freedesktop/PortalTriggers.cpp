#include "Platform/Freedesktop/PortalTriggers.h"

#include <algorithm>
#include <array>
#include <QtCore/QStringList>

namespace tomcatto {

namespace {

struct NamedKey
{
    quint16 keyCode;
    const char *name;
};

constexpr auto names = std::to_array<NamedKey>({
    {0, "a"},
    {11, "b"},
    {8, "c"},
    {2, "d"},
    {14, "e"},
    {3, "f"},
    {5, "g"},
    {4, "h"},
    {34, "i"},
    {38, "j"},
    {40, "k"},
    {37, "l"},
    {46, "m"},
    {45, "n"},
    {31, "o"},
    {35, "p"},
    {12, "q"},
    {15, "r"},
    {1, "s"},
    {17, "t"},
    {32, "u"},
    {9, "v"},
    {13, "w"},
    {7, "x"},
    {16, "y"},
    {6, "z"},
    {29, "0"},
    {18, "1"},
    {19, "2"},
    {20, "3"},
    {21, "4"},
    {23, "5"},
    {22, "6"},
    {26, "7"},
    {28, "8"},
    {25, "9"},
    {24, "equal"},
    {27, "minus"},
    {30, "bracketright"},
    {33, "bracketleft"},
    {39, "apostrophe"},
    {41, "semicolon"},
    {42, "backslash"},
    {43, "comma"},
    {44, "slash"},
    {47, "period"},
    {50, "grave"},
    {10, "less"},
    {93, "yen"},
    {94, "underscore"},
    {122, "F1"},
    {120, "F2"},
    {99, "F3"},
    {118, "F4"},
    {96, "F5"},
    {97, "F6"},
    {98, "F7"},
    {100, "F8"},
    {101, "F9"},
    {109, "F10"},
    {103, "F11"},
    {111, "F12"},
    {105, "F13"},
    {107, "F14"},
    {113, "F15"},
    {106, "F16"},
    {64, "F17"},
    {79, "F18"},
    {80, "F19"},
    {90, "F20"},
    {49, "space"},
    {48, "Tab"},
    {36, "Return"},
    {76, "KP_Enter"},
    {53, "Escape"},
    {51, "BackSpace"},
    {117, "Delete"},
    {115, "Home"},
    {119, "End"},
    {116, "Page_Up"},
    {121, "Page_Down"},
    {114, "Insert"},
    {110, "Menu"},
    {123, "Left"},
    {124, "Right"},
    {126, "Up"},
    {125, "Down"},
    {82, "KP_0"},
    {83, "KP_1"},
    {84, "KP_2"},
    {85, "KP_3"},
    {86, "KP_4"},
    {87, "KP_5"},
    {88, "KP_6"},
    {89, "KP_7"},
    {91, "KP_8"},
    {92, "KP_9"},
    {65, "KP_Decimal"},
    {95, "KP_Separator"},
    {67, "KP_Multiply"},
    {69, "KP_Add"},
    {75, "KP_Divide"},
    {78, "KP_Subtract"},
    {81, "KP_Equal"},
});

}

QString portalTrigger(quint16 keyCode, KeyModifiers modifiers)
{
    const auto *const key = std::ranges::find(names, keyCode, &NamedKey::keyCode);
    if (key == names.end())
        return {};
    QStringList parts;
    for (const auto &[modifier, name] :
         {std::pair(KeyModifier::control, "CTRL"), std::pair(KeyModifier::option, "ALT"),
          std::pair(KeyModifier::shift, "SHIFT"), std::pair(KeyModifier::command, "LOGO")}) {
        if (modifiers.testFlag(modifier))
            parts << QLatin1String(name);
    }
    return (parts << QLatin1String(key->name)).join(u'+');
}

}
