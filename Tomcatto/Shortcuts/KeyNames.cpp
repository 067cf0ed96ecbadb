#include "Shortcuts/KeyNames.h"

#include <algorithm>
#include <array>

namespace tomcatto {

namespace {

using enum NamedKey::Kind;

constexpr std::array names{
    NamedKey{0, sign, "A"},
    NamedKey{11, sign, "B"},
    NamedKey{8, sign, "C"},
    NamedKey{2, sign, "D"},
    NamedKey{14, sign, "E"},
    NamedKey{3, sign, "F"},
    NamedKey{5, sign, "G"},
    NamedKey{4, sign, "H"},
    NamedKey{34, sign, "I"},
    NamedKey{38, sign, "J"},
    NamedKey{40, sign, "K"},
    NamedKey{37, sign, "L"},
    NamedKey{46, sign, "M"},
    NamedKey{45, sign, "N"},
    NamedKey{31, sign, "O"},
    NamedKey{35, sign, "P"},
    NamedKey{12, sign, "Q"},
    NamedKey{15, sign, "R"},
    NamedKey{1, sign, "S"},
    NamedKey{17, sign, "T"},
    NamedKey{32, sign, "U"},
    NamedKey{9, sign, "V"},
    NamedKey{13, sign, "W"},
    NamedKey{7, sign, "X"},
    NamedKey{16, sign, "Y"},
    NamedKey{6, sign, "Z"},
    NamedKey{29, sign, "0"},
    NamedKey{18, sign, "1"},
    NamedKey{19, sign, "2"},
    NamedKey{20, sign, "3"},
    NamedKey{21, sign, "4"},
    NamedKey{23, sign, "5"},
    NamedKey{22, sign, "6"},
    NamedKey{26, sign, "7"},
    NamedKey{28, sign, "8"},
    NamedKey{25, sign, "9"},
    NamedKey{24, sign, "=", "equal"},
    NamedKey{27, sign, "-", "minus"},
    NamedKey{30, sign, "]", "rightbracket"},
    NamedKey{33, sign, "[", "leftbracket"},
    NamedKey{39, sign, "'", "quote"},
    NamedKey{41, sign, ";", "semicolon"},
    NamedKey{42, sign, "\\", "backslash"},
    NamedKey{43, sign, ",", "comma"},
    NamedKey{44, sign, "/", "slash"},
    NamedKey{47, sign, ".", "period"},
    NamedKey{50, sign, "`", "grave"},
    NamedKey{10, sign, "\u00a7", "section"},
    NamedKey{93, sign, "\u00a5", "yen"},
    NamedKey{94, sign, "_", "underscore"},
    NamedKey{122, sign, "F1"},
    NamedKey{120, sign, "F2"},
    NamedKey{99, sign, "F3"},
    NamedKey{118, sign, "F4"},
    NamedKey{96, sign, "F5"},
    NamedKey{97, sign, "F6"},
    NamedKey{98, sign, "F7"},
    NamedKey{100, sign, "F8"},
    NamedKey{101, sign, "F9"},
    NamedKey{109, sign, "F10"},
    NamedKey{103, sign, "F11"},
    NamedKey{111, sign, "F12"},
    NamedKey{105, sign, "F13"},
    NamedKey{107, sign, "F14"},
    NamedKey{113, sign, "F15"},
    NamedKey{106, sign, "F16"},
    NamedKey{64, sign, "F17"},
    NamedKey{79, sign, "F18"},
    NamedKey{80, sign, "F19"},
    NamedKey{90, sign, "F20"},
    NamedKey{49, text, "space"},
    NamedKey{48, text, "tab"},
    NamedKey{36, text, "return"},
    NamedKey{76, text, "enter"},
    NamedKey{53, text, "escape"},
    NamedKey{51, text, "delete", "backspace"},
    NamedKey{117, text, "forward_delete", "delete"},
    NamedKey{115, text, "home"},
    NamedKey{119, text, "end"},
    NamedKey{116, text, "page_up", "pageup"},
    NamedKey{121, text, "page_down", "pagedown"},
    NamedKey{114, text, "help"},
    NamedKey{110, text, "menu"},
    NamedKey{123, text, "left"},
    NamedKey{124, text, "right"},
    NamedKey{126, text, "up"},
    NamedKey{125, text, "down"},
    NamedKey{82, keypad, "0", "keypad0"},
    NamedKey{83, keypad, "1", "keypad1"},
    NamedKey{84, keypad, "2", "keypad2"},
    NamedKey{85, keypad, "3", "keypad3"},
    NamedKey{86, keypad, "4", "keypad4"},
    NamedKey{87, keypad, "5", "keypad5"},
    NamedKey{88, keypad, "6", "keypad6"},
    NamedKey{89, keypad, "7", "keypad7"},
    NamedKey{91, keypad, "8", "keypad8"},
    NamedKey{92, keypad, "9", "keypad9"},
    NamedKey{65, keypad, ".", "keypadperiod"},
    NamedKey{95, keypad, ",", "keypadcomma"},
    NamedKey{67, keypad, "*", "keypadtimes"},
    NamedKey{69, keypad, "+", "keypadplus"},
    NamedKey{75, keypad, "/", "keypadslash"},
    NamedKey{78, keypad, "-", "keypadminus"},
    NamedKey{81, keypad, "=", "keypadequal"},
};

/// Other ways of writing some keys; what the signs themselves are is looked up besides.
constexpr std::array<std::pair<const char *, quint16>, 14> otherWords{{
    {"esc", 53},
    {"del", 117},
    {"forwarddelete", 117},
    {"insert", 114},
    {"pgup", 116},
    {"pgdown", 121},
    {"leftarrow", 123},
    {"rightarrow", 124},
    {"uparrow", 126},
    {"downarrow", 125},
    {"\u2190", 123},
    {"\u2192", 124},
    {"\u2191", 126},
    {"\u2193", 125},
}};

const QString unnamed = QStringLiteral("key");

QString wordOf(const NamedKey &key)
{
    return QString::fromUtf8(key.word ? key.word : key.name).toLower();
}

}

const NamedKey *namedKey(quint16 keyCode)
{
    const auto *const found = std::ranges::find(names, keyCode, &NamedKey::keyCode);
    return found == names.end() ? nullptr : found;
}

QString keyWord(quint16 keyCode)
{
    const NamedKey *const key = namedKey(keyCode);
    return key ? wordOf(*key) : unnamed + QString::number(keyCode);
}

std::optional<quint16> keyCodeFromWord(const QString &text)
{
    QString word = text.trimmed().toLower();
    for (const NamedKey &key : names) {
        if (wordOf(key) == word || (key.kind == sign && QString::fromUtf8(key.name).toLower() == word))
            return key.keyCode;
    }
    word.remove(u' ').remove(u'-').remove(u'_');
    for (const auto &[other, keyCode] : otherWords) {
        if (QString::fromUtf8(other) == word)
            return keyCode;
    }
    for (const NamedKey &key : names) {
        if (wordOf(key) == word)
            return key.keyCode;
    }
    bool isNumber = false;
    const quint16 code = word.mid(unnamed.size()).toUShort(&isNumber);
    return isNumber && word.startsWith(unnamed) ? std::optional(code) : std::nullopt;
}

}
