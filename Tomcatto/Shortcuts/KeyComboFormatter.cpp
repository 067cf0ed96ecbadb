#include "Shortcuts/KeyComboFormatter.h"

#include "Shortcuts/KeyNames.h"

#include <array>

namespace tomcatto {

namespace {

struct NamedModifier
{
    KeyModifier flag;
    char16_t symbol;
    /// The first one is how it is written.
    std::array<const char *, 6> words;
};

// In the order of display.
constexpr std::array modifiers{
    NamedModifier{KeyModifier::control, u'\u2303', {"control", "ctrl"}},
    NamedModifier{KeyModifier::option, u'\u2325', {"alt", "option", "opt"}},
    NamedModifier{KeyModifier::shift, u'\u21e7', {"shift"}},
    NamedModifier{KeyModifier::command, u'\u2318', {"super", "command", "cmd", "meta", "win", "logo"}},
};

QString keyName(quint16 keyCode, const LocalizedStrings &strings)
{
    const NamedKey *const key = namedKey(keyCode);
    if (!key)
        return strings.format(QStringLiteral("shortcut.key.unknown"), keyCode);
    QString name = QString::fromUtf8(key->name);
    switch (key->kind) {
    case NamedKey::Kind::sign:
        return name;
    case NamedKey::Kind::text:
        return strings.text(QStringLiteral("shortcut.key.") + name);
    case NamedKey::Kind::keypad:
        return strings.format(QStringLiteral("shortcut.key.keypad"), name);
    }
    return {};
}

std::optional<KeyModifier> modifierOf(const QString &word)
{
    for (const NamedModifier &modifier : modifiers) {
        for (const char *const each : modifier.words) {
            if (each && word == QLatin1StringView(each))
                return modifier.flag;
        }
    }
    return std::nullopt;
}

/// Takes a modifier off the beginning; `nullopt` if a key stands there.
std::optional<KeyModifier> takeModifier(QString &text)
{
    for (const NamedModifier &modifier : modifiers) {
        if (!text.startsWith(QChar(modifier.symbol)))
            continue;
        text = text.mid(1).trimmed();
        // Between symbols a sign may stand, though none has to.
        if (text.size() > 1 && text.startsWith(u'+'))
            text = text.mid(1).trimmed();
        return modifier.flag;
    }
    const auto end = text.indexOf(u'+');
    const auto flag = modifierOf(text.left(end).trimmed().toLower());
    if (end < 0 || !flag)
        return std::nullopt;
    text = text.mid(end + 1).trimmed();
    return flag;
}

}

QStringList KeyComboFormatter::parts(const KeyCombo &combo, const LocalizedStrings &strings)
{
    QStringList parts;
    for (const NamedModifier &modifier : modifiers) {
        if (combo.modifierFlags.testFlag(modifier.flag))
            parts << QString(QChar(modifier.symbol));
    }
    return parts << keyName(combo.keyCode, strings);
}

QString KeyComboFormatter::string(const KeyCombo &combo, const LocalizedStrings &strings)
{
    return parts(combo, strings).join(QString());
}

QString KeyComboFormatter::words(const KeyCombo &combo)
{
    QStringList words;
    for (const NamedModifier &modifier : modifiers) {
        if (combo.modifierFlags.testFlag(modifier.flag))
            words << QLatin1String(modifier.words.front());
    }
    return (words << keyWord(combo.keyCode)).join(u'+');
}

std::optional<KeyCombo> KeyComboFormatter::parsed(const QString &text)
{
    QString rest = text.trimmed();
    KeyModifiers flags;
    while (const auto flag = takeModifier(rest))
        flags |= *flag;
    const auto keyCode = keyCodeFromWord(rest);
    return keyCode ? std::optional(KeyCombo(*keyCode, flags)) : std::nullopt;
}

}
