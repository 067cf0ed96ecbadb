#pragma once

#include <optional>
#include <QtCore/QUuid>

namespace tomcatto {

/// Fresh random identifiers. Main thread only.
class IdentifierSource
{
public:
    virtual ~IdentifierSource() = default;

    /// A new random identifier.
    [[nodiscard]] virtual QUuid next() = 0;
};

/// The standard text form: upper case, without braces.
[[nodiscard]] inline QString identifierText(const QUuid &identifier)
{
    return identifier.toString(QUuid::WithoutBraces).toUpper();
}

/// The identifier of a text in that form, in upper or lower case, with braces or without; nothing for any other text.
[[nodiscard]] inline std::optional<QUuid> identifierFromText(const QString &text)
{
    const QUuid identifier = QUuid::fromString(text);
    // Its reader does not mind what comes behind.
    const auto form = text.startsWith(u'{') ? QUuid::WithBraces : QUuid::WithoutBraces;
    const bool isWhole = identifier.toString(form).compare(text, Qt::CaseInsensitive) == 0;
    return isWhole && !identifier.isNull() ? std::optional(identifier) : std::nullopt;
}

}
