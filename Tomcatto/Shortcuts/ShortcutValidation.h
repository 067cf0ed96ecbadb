#pragma once

#include "Shortcuts/KeyCombo.h"

#include <QtCore/QString>

namespace tomcatto {

/// Whether a combination serves as a shortcut from anywhere.
class ShortcutValidation final
{
public:
    struct Result
    {
        enum class Kind {
            /// The system uses it itself.
            reserved,
            ok,
            /// Applications use it themselves, as for copying or saving.
            standard,
            /// Without control or command it would take a key from typing.
            invalid,
        };

        Kind kind = Kind::invalid;
        /// What the system calls its own shortcut, as in the table's names; only of a reserved one.
        QString reservedName = {};

        bool operator==(const Result &) const = default;
    };

    /// A shortcut of the system.
    struct Reserved
    {
        quint16 keyCode;
        KeyModifiers modifiers;
        const char *name;
    };

    [[nodiscard]] static Result validate(const KeyCombo &combo);
    /// The key of the text that names a reserved shortcut to people.
    [[nodiscard]] static QString displayNameKey(const QString &reservedName);
};

}
