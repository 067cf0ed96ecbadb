#pragma once

#include "Localization/LocalizedStrings.h"
#include "Shortcuts/KeyCombo.h"

#include <QtCore/QStringList>

namespace tomcatto {

/// How combinations are shown and written.
class KeyComboFormatter final
{
public:
    /// The symbols of the modifiers, always in one order, then the key's name in the user's language; one text to a
    /// key.
    [[nodiscard]] static QStringList parts(const KeyCombo &combo, const LocalizedStrings &strings);
    /// The same as one text, with nothing between.
    [[nodiscard]] static QString string(const KeyCombo &combo, const LocalizedStrings &strings);

    /// A combination in words, such as "control+alt+space", in no language: what is read back gives the same one.
    [[nodiscard]] static QString words(const KeyCombo &combo);
    /// Reads a combination: modifiers as words (control, alt or option, shift, super or command, and their short forms)
    /// or as symbols, then one key; "+" between them, where there are no symbols. `nullopt` for anything else.
    [[nodiscard]] static std::optional<KeyCombo> parsed(const QString &text);
};

}
