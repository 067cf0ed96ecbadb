#pragma once

#include <optional>
#include <QtCore/QString>

namespace tomcatto {

/// A key by its name. Letters and signs are those of the US layout.
struct NamedKey
{
    enum class Kind {
        /// `name` is what is shown.
        sign,
        /// What is shown is the text under "shortcut.key." and `name`.
        text,
        /// The sign `name` on the keypad.
        keypad,
    };

    quint16 keyCode;
    Kind kind;
    const char *name;
    /// How it is written in words where that is not the name itself; null as a rule.
    const char *word = nullptr;
};

/// Nothing for a key without a name.
[[nodiscard]] const NamedKey *namedKey(quint16 keyCode);

/// How a key is written in words, such as "space", "pageup" or "keypad5", and "key200" without a name; never in the
/// user's language.
[[nodiscard]] QString keyWord(quint16 keyCode);
/// The key that is written so; small and capital letters, spaces, hyphens and underscores within do not matter.
[[nodiscard]] std::optional<quint16> keyCodeFromWord(const QString &text);

}
