#pragma once

#include "Platform/Ports/UserDefaults.h"

#include <nlohmann/json.hpp>

namespace tomcatto {

/// The JSON object that user defaults are kept in: reads and changes single members by their type and leaves all others
/// as they are, in their order. A value; not thread-safe.
///
/// Numbers with a fraction or an exponent are doubles, the others integers where they fit 64 bits. A nested object or
/// array is data. Null, and nothing else, cannot be read.
class DefaultsDocument final
{
public:
    /// An empty object.
    DefaultsDocument() = default;

    /// Reads the text of one JSON object in UTF-8; nothing for any other text, and for one nested deeper than 128
    /// levels.
    [[nodiscard]] static std::optional<DefaultsDocument> parse(const QByteArray &text);

    [[nodiscard]] std::optional<DefaultsValue> value(const QString &key) const;
    /// Stores a value in the key's place, or at the end. Data that is not a JSON object or array is stored as text. A
    /// number that is not finite has no JSON form and removes the key.
    /// @return whether anything changed.
    bool setValue(const QString &key, const DefaultsValue &value);
    /// @return whether the key was there.
    bool remove(const QString &key);
    /// The whole object as indented UTF-8 text with a line end.
    [[nodiscard]] QByteArray text() const;

private:
    nlohmann::ordered_json m_object = nlohmann::ordered_json::object();
};

}
